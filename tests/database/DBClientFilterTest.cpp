#include "database/DBClientFilter.h"

#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "database/LiteralRules.h"
#include "database/ValueTexts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace utility
{
namespace
{

struct CRange
{
    const char16_t* m_Value1;
    const char16_t* m_Value2;
};

// Bounds with and without units, out of order, of mixed kinds, and ones that are no numbers.
constexpr CRange RANGES[] = {{u"10k", u"1k"},   {u"4.7", u"47"},    {u"1n", u"10uF"},
                             {u"10uF", u"1pF"}, {u"2200p", u"2n2"}, {u"0", u"-1e3"},
                             {u"10", u"none"},  {u"net", u"10"},    {u"1N4148", u""},
                             {u"", u""},        {u"1M", u"100u"},   {u"\u00E9T", u"r"}};

TEST(DBClientFilterTest, AgreesWithTheLiteralRulesForEveryOperatorAndParseType)
{
    const std::vector<std::u16string> cells = MakeValueTexts();
    ASSERT_GE(cells.size(), 200u);
    int matches = 0;
    int tests = 0;
    for (int op = -1; op <= FILTER_OPERATOR_COUNT; ++op)
        for (int type = PARSE_NONE; type <= PARSE_NUMBER; ++type)
            for (const CRange& range : RANGES)
            {
                const CDBClientFilter filter(u"Value", op, range.m_Value1, range.m_Value2, type);
                const literal::CFilter expected(op, range.m_Value1, range.m_Value2, type);
                EXPECT_EQ(filter.GetValue1(), CString(expected.m_First.m_Text));
                EXPECT_EQ(filter.GetValue2(), CString(expected.m_Second.m_Text));
                EXPECT_EQ(filter.GetParseType(), expected.m_Type);
                for (const std::u16string& cell : cells)
                {
                    ++tests;
                    matches += expected.IsMatch(cell);
                    EXPECT_EQ(filter.IsMatch(CString(cell)), expected.IsMatch(cell))
                        << "operator " << op << ", type " << type << ", value "
                        << testing::PrintToString(CString(range.m_Value1)) << ", cell "
                        << testing::PrintToString(CString(cell));
                }
            }
    // Rows that all match, or none, would prove nothing.
    EXPECT_GT(matches, tests / 10);
    EXPECT_LT(matches, tests / 2);
}

// As the fuzz target lays a file out: operator and parse type, the units of the first value, that
// value, a cell.
TEST(DBClientFilterTest, AgreesWithTheLiteralRulesOnTheFuzzCorpus)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(UTILITY_FUZZ_DATA "/FieldRules"))
    {
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        ASSERT_GE(bytes.size(), 4u);
        std::u16string value(bytes.size() / 2 - 1, u'\0');
        std::memcpy(value.data(), bytes.data() + 2, value.size() * 2);
        const std::u16string cell = value.substr(static_cast<unsigned char>(bytes[1]));
        value.resize(value.size() - cell.size());
        const int op = bytes[0] % 16;
        const int type = bytes[0] / 16;
        ++files;

        const CDBClientFilter filter(u"Value", op, CString(value), CString(cell), type);
        EXPECT_EQ(filter.IsMatch(CString(cell)),
                  literal::CFilter(op, value, cell, type).IsMatch(cell));
    }
    EXPECT_GE(files, 9);
}

TEST(DBClientFilterTest, AnswersAsAnEngineerReads)
{
    const struct
    {
        int m_Operator;
        const char16_t* m_Value1;
        const char16_t* m_Value2;
        int m_Type;
        const char16_t* m_Cell;
        bool m_Matches;
    } rows[] = {
        {FILTER_BETWEEN, u"10k", u"1k", PARSE_RESISTOR, u"4k7", true},
        {FILTER_BETWEEN, u"1k", u"10k", PARSE_RESISTOR, u"10K", true},
        {FILTER_BETWEEN, u"1k", u"10k", PARSE_RESISTOR, u"11k", false},
        {FILTER_BETWEEN, u"1k", u"x", PARSE_RESISTOR, u"4k7", false},
        {FILTER_NOT_BETWEEN, u"1k", u"10k", PARSE_RESISTOR, u"11k", true},
        {FILTER_NOT_BETWEEN, u"1k", u"x", PARSE_RESISTOR, u"11k", false},
        // A first value of resistor letters makes any value a resistor's.
        {FILTER_LESS, u"10k", u"", PARSE_ANY, u"10uF", false},
        {FILTER_LESS, u"10", u"", PARSE_ANY, u"10uF", true},
        {FILTER_NOT_EQUAL, u"10k", u"", PARSE_RESISTOR, u"none", false},
        {FILTER_EQUAL, u"2n2", u"", PARSE_CAPACITOR, u"2200p", false},
        {FILTER_EQUAL, u"2n2", u"", PARSE_CAPACITOR, u"2N2", true},
        {FILTER_EQUAL, u"1N4148", u"", PARSE_NONE, u"1N4148", false},
        {FILTER_BEGINS, u"1N4148", u"", PARSE_NONE, u"1n4148W", true},
        {FILTER_EQUAL, u"Resistor", u"", PARSE_NONE, u"RESISTOR", true},
        {FILTER_GREATER, u"net", u"", PARSE_NONE, u"_net", false},
        {FILTER_CONTAINS, u"T*", u"", PARSE_NONE, u"\u00C9T\u00C9", false},
        {FILTER_CONTAINS, u"\u00C9", u"", PARSE_NONE, u"caf\u00E9", true},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Value1)) + " on " +
                     testing::PrintToString(CString(row.m_Cell)));
        const CDBClientFilter filter(u"Value", row.m_Operator, row.m_Value1, row.m_Value2,
                                     row.m_Type);
        EXPECT_EQ(filter.IsMatch(row.m_Cell), row.m_Matches);
    }
}

TEST(DBClientFilterTest, KnowsItsColumnOnlyOnceFound)
{
    CDBClientFilter filter(u"Value", FILTER_EQUAL, u"Big", u"", PARSE_NONE);

    EXPECT_EQ(filter.GetFieldName(), u"Value");
    EXPECT_EQ(filter.GetFieldIndex(), -1);
    filter.SetFieldIndex(3);
    EXPECT_EQ(filter.GetFieldIndex(), 3);
    EXPECT_EQ(CDBClientFilter().GetFieldIndex(), -1);
}

class CCountedFilter : public CDBClientFilter
{
public:
    ~CCountedFilter() override { ++m_Deleted; }
    static inline int m_Deleted = 0;
};

TEST(DBClientFilterSetTest, GivesItsFiltersInOrderAndDeletesThem)
{
    CCountedFilter::m_Deleted = 0;
    auto* first = new CCountedFilter;
    auto* second = new CCountedFilter;
    {
        CDBClientFilterSet set;
        set.AddFilter(first);
        set.AddFilter(second);

        POSITION position = set.GetHeadPosition();
        EXPECT_EQ(set.GetNext(position), first);
        EXPECT_EQ(set.GetNext(position), second);
        EXPECT_EQ(position, nullptr);
        EXPECT_EQ(CCountedFilter::m_Deleted, 0);
    }
    EXPECT_EQ(CCountedFilter::m_Deleted, 2);
    EXPECT_EQ(CDBClientFilterSet().GetHeadPosition(), nullptr);
}

TEST(FilterOperatorsTest, NamesTwelveOperatorsAndNoOther)
{
    const char16_t* const names[] = {
        u"Equal to",  u"Not equal to",          u"Greater than",     u"Greater than or equal to",
        u"Less than", u"Less than or equal to", u"Begins with",      u"Contains",
        u"Between",   u"Does not begin with",   u"Does not contain", u"Is not between"};
    for (int op = 0; op < 12; ++op)
        EXPECT_EQ(GetFilterOperatorName(op), names[op]);
    for (const int op : {-1, 12, INT_MAX, INT_MIN})
        EXPECT_EQ(GetFilterOperatorName(op), u"");
}

} // namespace
} // namespace utility
