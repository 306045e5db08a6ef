#include "DatabaseFixture.h"

#include <cstdlib>
#include <random>

namespace utility
{

namespace
{

/// A number, a text that repeats, and a real that is NULL in each seventh row.
class CSeriesSet : public CRecordset
{
public:
    explicit CSeriesSet(CDatabase* database) : CRecordset(database) { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[i]", m_Number);
        RFX_Text(exchange, u"[name]", m_Name, 512);
        RFX_Double(exchange, u"[half]", m_Half);
    }

    void ExpectRow(LONG number) const
    {
        CString name;
        name.Format(u"part %d", number % 1000);
        EXPECT_EQ(m_Number, number);
        EXPECT_EQ(m_Name, name) << number;
        EXPECT_EQ(IsFieldStatusNull(2), number % 7 == 0) << number;
        EXPECT_EQ(m_Half, number % 7 == 0 ? 0 : number * 0.5) << number;
    }

private:
    LONG m_Number = 0;
    CString m_Name;
    double m_Half = 0;
};

int Rows()
{
    return std::getenv("UTILITY_NIGHTLY") ? 1'000'000 : 20'000;
}

constexpr int JUMPS = 2000;

} // namespace

/// More rows than a row set, a page of the store or a message of the server holds.
class ManyRowsTest : public CDatabaseTest
{
protected:
    void SetUp() override
    {
        CDatabaseTest::SetUp();
        CString numbers;
        switch (GetParam())
        {
        case EServer::SQLite:
            numbers.Format(u"(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                           u"WHERE i < %d) SELECT i FROM n)",
                           Rows());
            break;
        case EServer::PostgreSQL:
            numbers.Format(u"generate_series(1, %d)", Rows());
            break;
        case EServer::MariaDB:
            numbers.Format(u"(SELECT seq AS i FROM seq_1_to_%d)", Rows());
            break;
        }
        m_Database.SetQueryTimeout(0);
        Execute(u"CREATE TABLE [Series] ([i] INTEGER, [name] VARCHAR(20), [half] DOUBLE "
                u"PRECISION)");
        const LPCWSTR name =
            IsOn(EServer::MariaDB) ? u"CONCAT('part ', i % 1000)" : u"'part ' || (i % 1000)";
        Execute(CString(u"INSERT INTO [Series] SELECT i, ") + name +
                u", CASE WHEN i % 7 = 0 THEN NULL ELSE i * 0.5 END FROM " + numbers +
                (IsOn(EServer::PostgreSQL) ? u" AS n(i)" : u" AS n"));
    }
};

TEST_P(ManyRowsTest, AnyIsReachedAndIsItself)
{
    CSeriesSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Series] ORDER BY [i]"); });
    set.ExpectRow(1);
    EXPECT_EQ(set.GetRecordCount(), 1) << "rows fetched ahead are not counted";
    set.SetAbsolutePosition(Rows() / 2);
    set.ExpectRow(Rows() / 2);
    EXPECT_EQ(set.GetRecordCount(), Rows() / 2);
    set.MoveLast();
    set.ExpectRow(Rows());
    EXPECT_EQ(set.GetRecordCount(), Rows());

    std::mt19937 random(1);
    for (int jump = 0; jump < JUMPS && !HasFailure(); ++jump)
    {
        const auto number = static_cast<LONG>(random() % static_cast<unsigned>(Rows())) + 1;
        set.SetAbsolutePosition(jump % 2 == 0 ? number : number - Rows() - 1);
        set.ExpectRow(number);
    }
    set.MoveFirst();
    for (LONG number = 1; !set.IsEOF() && !HasFailure(); ++number, set.MoveNext())
        set.ExpectRow(number);
    EXPECT_TRUE(set.IsEOF());
}

UTILITY_ON_ALL_SERVERS(ManyRowsTest);

} // namespace utility
