#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/DatabaseFixture.h"
#include "database/FilterOperators.h"
#include "database/OGDynRecordset.h"
#include "database/ValueTexts.h"
#include "platform/db/FieldExchange.h"
#include "platform/db/RecordsetStatus.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr int REPEATS = 2; // of each text, so that a verdict is used again

/// The cells of a table in which a column is text, a whole number, a real one, an exact one or a
/// date, with NULLs. A row can be changed.
class CCells : public COGDynRecordset
{
public:
    explicit CCells(CDatabase* database) : COGDynRecordset(database) { m_nFields = 6; }

    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_Text(exchange, u"[Text]", m_Text, 512);
        RFX_Long(exchange, u"[Whole]", m_Whole);
        RFX_Double(exchange, u"[Real]", m_Real);
        RFX_Text(exchange, u"[Exact]", m_Exact, 512);
        RFX_Date(exchange, u"[Made]", m_Made);
    }

    using COGDynRecordset::DoesCurrentRecordMatch;

    LONG m_Id = 0;
    CString m_Text;
    LONG m_Whole = 0;
    double m_Real = 0;
    CString m_Exact;
    TIMESTAMP_STRUCT m_Made = {};
};

class ColumnFilterTest : public CSourceTest
{
protected:
    void SetUp() override
    {
        CSourceTest::SetUp();
        Execute(u"CREATE TABLE [Cells] ([Id] INTEGER, [Text] TEXT, [Whole] INTEGER, [Real] DOUBLE "
                u"PRECISION, [Exact] NUMERIC(20,4), [Made] TIMESTAMP NULL)");
    }

    /// Every odd text several times, a NULL among them, and one that is cut.
    void FillCells()
    {
        std::vector<std::u16string> texts = MakeValueTexts();
        texts.push_back(std::u16string(9000, u'4') + u"k");
        texts.push_back(u"4k7" + std::u16string(9000, u'\u00E9'));
        m_Database.BeginTrans();
        m_Set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Cells] WHERE 0");
        for (int repeat = 0; repeat < REPEATS; ++repeat)
            for (const std::u16string& text : texts)
                AddRow(CString(text));
        m_Set.Close();
        m_Database.CommitTrans();
    }

    void AddRow(const CString& text)
    {
        const int row = m_Rows++;
        m_Set.AddNew();
        m_Set.m_Id = row;
        if (row % 11 != 0)
            m_Set.m_Text = text;
        if (row % 7 != 0)
            m_Set.m_Whole = (row % 2 == 0 ? 1 : -1) * (row % 5 == 0 ? row * 1000 : row * 3 % 1200);
        if (row % 5 != 0)
            m_Set.m_Real = (row - 300) * (row % 2 == 0 ? 0.1 : 1e-7);
        if (row % 13 != 0)
            m_Set.m_Exact.Format(u"%d.%d", row - 100, row % 10);
        if (row % 3 != 0)
            m_Set.m_Made = {static_cast<short>(1990 + row % 40), 1, 2, 0, 0, 0, 0};
        ASSERT_TRUE(m_Set.Update());
    }

    /// Changes some rows and deletes one, so that they differ from what was fetched.
    void ChangeSomeRows()
    {
        const char16_t* const texts[] = {u"4k7", u"", u"none", u"10k", u"\u00C9t\u00E9"};
        int row = 3;
        for (const char16_t* const text : texts)
        {
            m_Set.SetAbsolutePosition(row += 4);
            m_Set.Edit();
            m_Set.m_Text = text;
            m_Set.m_Whole = row * 100;
            ASSERT_TRUE(m_Set.Update());
        }
        m_Set.SetAbsolutePosition(row + 1);
        m_Set.Delete();
        m_Set.m_nFields = 0; // from here on cells are read as text alone
    }

    /// The texts of a column as the grid shows them.
    std::vector<CString> ReadColumn(int field)
    {
        std::vector<CString> texts;
        for (m_Set.MoveFirst(); !m_Set.IsEOF(); m_Set.MoveNext())
            texts.push_back(m_Set.GetFieldData(field));
        return texts;
    }

    /// The rows that the filter lets through.
    std::vector<int> Filtered(const char16_t* field, int op, const char16_t* value1,
                              const char16_t* value2, int type)
    {
        auto* const filters = new CDBClientFilterSet;
        filters->AddFilter(new CDBClientFilter(field, op, value1, value2, type));
        m_Set.ApplyLocalFilters(filters);
        std::vector<int> rows;
        for (; !m_Set.IsEOF(); m_Set.MoveNext())
        {
            EXPECT_TRUE(m_Set.DoesCurrentRecordMatch());
            CRecordsetStatus status;
            m_Set.CRecordset::GetStatus(status);
            rows.push_back(status.m_lCurrentRecord);
        }
        return rows;
    }

    static std::vector<int> Expected(const std::vector<CString>& cells,
                                     const CDBClientFilter& filter)
    {
        std::vector<int> rows;
        for (std::size_t row = 0; row < cells.size(); ++row)
            if (filter.IsMatch(cells[row]))
                rows.push_back(static_cast<int>(row));
        return rows;
    }

    int m_Rows = 0;
    CCells m_Set{&m_Database};
};

constexpr const char16_t* COLUMNS[] = {u"Text", u"Whole", u"Real", u"Exact", u"Made"};
constexpr const char16_t* RANGES[][2] = {
    {u"10k", u"1k"}, {u"104", u"0.0000047"}, {u"\u00C9T", u""}, {u"1", u"x"}};

TEST_P(ColumnFilterTest, AgreesWithTheFilterOnEveryCellsText)
{
    FillCells();
    ASSERT_TRUE(m_Set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Cells] ORDER BY [Id]"));
    ASSERT_EQ(RefusalOf([&] { ChangeSomeRows(); }), "");
    std::size_t matches = 0;
    std::size_t tests = 0;
    for (int field = 1; field <= 5; ++field)
    {
        m_Set.ApplyLocalFilters(nullptr);
        const std::vector<CString> cells = ReadColumn(field);
        ASSERT_EQ(cells.size(), static_cast<std::size_t>(m_Rows));
        const char16_t* const column = COLUMNS[field - 1];
        for (int op = -1; op <= FILTER_OPERATOR_COUNT; ++op)
            for (int type = PARSE_NONE; type <= PARSE_NUMBER; ++type)
                for (const auto& [value1, value2] : RANGES)
                {
                    SCOPED_TRACE(testing::Message()
                                 << "field " << field << ", operator " << op << ", type " << type
                                 << ", value " << testing::PrintToString(CString(value1)));
                    const CDBClientFilter filter(column, op, value1, value2, type);
                    const std::vector<int> expected = Expected(cells, filter);
                    ASSERT_EQ(Filtered(column, op, value1, value2, type), expected);
                    matches += expected.size();
                    tests += cells.size();
                }
    }
    // Rows that all match, or none, would prove nothing.
    EXPECT_GT(matches, tests / 10);
    EXPECT_LT(matches, tests / 2);
}

UTILITY_ON_ALL_SOURCES(ColumnFilterTest);

} // namespace
} // namespace utility
