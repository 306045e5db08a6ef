#include "DatabaseFixture.h"

#include <ctime>

namespace utility
{

namespace
{

/// One row's moment and day.
class CDatesSet : public CRecordset
{
public:
    explicit CDatesSet(CDatabase* database) : CRecordset(database) { m_nFields = 2; }

    enum EField : DWORD
    {
        MOMENT,
        DAY
    };

    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Date(exchange, u"[moment]", m_Moment);
        RFX_Date(exchange, u"[day]", m_Day);
    }

    TIMESTAMP_STRUCT m_Moment = {};
    TIMESTAMP_STRUCT m_Day = {};
};

/// "1752-12-31 23:59:59", "NULL", or "unreadable" where the source has a value nevertheless.
std::string Show(const CDatesSet& set, CDatesSet::EField field, const TIMESTAMP_STRUCT& date)
{
    if (set.IsFieldStatusNull(field))
        return set.IsFieldCut(field) ? "unreadable" : "NULL";
    EXPECT_FALSE(set.IsFieldCut(field));
    CString text;
    text.Format(u"%04d-%02d-%02d %02d:%02d:%02d", static_cast<int>(date.year),
                static_cast<int>(date.month), static_cast<int>(date.day),
                static_cast<int>(date.hour), static_cast<int>(date.minute),
                static_cast<int>(date.second));
    return ToUtf8(text.View());
}

struct CCase
{
    LPCWSTR Stored;
    const char* Moment;
    const char* Day; // without its time, which is midnight
};

constexpr const char* MIDNIGHT = " 00:00:00";

} // namespace

/// Dates outside the years from 1753 to 9999, and those that are none.
class OddDatesTest : public CDatabaseTest
{
protected:
    void SetUp() override
    {
        CDatabaseTest::SetUp();
        const LPCWSTR moment = IsOn(EServer::MariaDB) ? u"DATETIME" : u"TIMESTAMP";
        if (IsOn(EServer::MariaDB))
            Execute(u"SET sql_mode = ''"); // strict modes refuse the zero date
        Execute(CString(u"CREATE TABLE [Free] ([moment] ") + moment + u" NULL, [day] DATE NULL)");
        Execute(CString(u"CREATE TABLE [Bound] ([moment] ") + moment +
                u" NOT NULL, [day] DATE NOT NULL)");
    }

    void ExpectToRead(LPCWSTR table, std::initializer_list<CCase> cases)
    {
        for (const CCase& item : cases)
        {
            SCOPED_TRACE(ToUtf8(item.Stored));
            CString sql;
            sql.Format(u"DELETE FROM [%s]", table);
            Execute(sql);
            sql.Format(u"INSERT INTO [%s] VALUES ('%s', '%s')", table, item.Stored,
                       IsOn(EServer::SQLite) ? CString(item.Stored).Left(DayLength(item.Stored))
                                             : CString(item.Stored));
            Execute(sql);
            CDatesSet set(&m_Database);
            sql.Format(u"SELECT * FROM [%s]", table);
            Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, sql); });
            EXPECT_EQ(Show(set, CDatesSet::MOMENT, set.m_Moment), item.Moment);
            const bool isDate = item.Day[0] >= '0' && item.Day[0] <= '9';
            EXPECT_EQ(Show(set, CDatesSet::DAY, set.m_Day),
                      isDate ? std::string(item.Day) + MIDNIGHT : item.Day);
        }
    }

private:
    static int DayLength(const CString& stored)
    {
        const int blank = stored.Find(u' ');
        return blank < 0 ? stored.GetLength() : blank;
    }
};

TEST_P(OddDatesTest, YearsBefore1753AndUpTo9999AreKept)
{
    ExpectToRead(u"Free", {{u"0100-03-01 00:00:00", "0100-03-01 00:00:00", "0100-03-01"},
                           {u"1752-12-31 23:59:58", "1752-12-31 23:59:58", "1752-12-31"},
                           {u"9999-12-31 23:59:58", "9999-12-31 23:59:58", "9999-12-31"}});
}

TEST_P(OddDatesTest, YearsBehind9999AreKeptOrToldNeverAnotherDate)
{
    if (IsOn(EServer::SQLite)) // its dates are texts
        ExpectToRead(u"Free", {{u"12345-06-07 08:09:10", "12345-06-07 08:09:10", "12345-06-07"}});
    else if (IsOn(EServer::PostgreSQL)) // its driver reads four digits
        ExpectToRead(u"Free", {{u"10000-01-01 00:00:00", "unreadable", "unreadable"},
                               {u"12345-06-07 08:09:10", "unreadable", "unreadable"}});
    else // stored as the zero date
        ExpectToRead(u"Bound", {{u"12345-06-07 08:09:10", "unreadable", "unreadable"}});
}

TEST_P(OddDatesTest, WhatIsNoDateReadsAsNull)
{
    if (IsOn(EServer::SQLite))
        ExpectToRead(u"Free", {{u"0000-00-00 00:00:00", "NULL", "NULL"},
                               {u"2023-02-30 00:00:00", "NULL", "NULL"},
                               {u"yesterday", "NULL", "NULL"}});
    else if (IsOn(EServer::PostgreSQL))
        ExpectToRead(u"Free", {{u"infinity", "unreadable", "unreadable"},
                               {u"-infinity", "unreadable", "unreadable"}});
    else
    {
        // Its driver gives the zero date as NULL: where NULL may stand nobody can tell them apart.
        ExpectToRead(u"Free", {{u"0000-00-00 00:00:00", "NULL", "NULL"}});
        ExpectToRead(u"Bound", {{u"0000-00-00 00:00:00", "unreadable", "unreadable"},
                                {u"2024-01-31 10:11:12", "2024-01-31 10:11:12", "2024-01-31"}});
    }
}

// PostgreSQL's driver fills what it cannot read from the present day.
TEST_P(OddDatesTest, TodayIsNoOddDate)
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    CString today;
    today.Format(u"%04d-%02d-%02d 00:00:00", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    const std::string read = ToUtf8(today.View());
    const std::string day = read.substr(0, read.find(' '));
    const CString thousand = u"1000" + today.Mid(4);
    const std::string readThousand = ToUtf8(thousand.View());
    const std::string dayThousand = readThousand.substr(0, readThousand.find(' '));
    ExpectToRead(u"Free", {{today, read.c_str(), day.c_str()},
                           {thousand, readThousand.c_str(), dayThousand.c_str()}});
}

/// On the servers that hold dates which their drivers cannot give.
class UnreadableDatesTest : public OddDatesTest
{
};

TEST_P(UnreadableDatesTest, RowRefusesAnEdit)
{
    Execute(IsOn(EServer::PostgreSQL) ? u"INSERT INTO [Bound] VALUES ('infinity', '2024-01-31')"
                                      : u"INSERT INTO [Bound] VALUES ('0000-00-00', '2024-01-31')");
    CDatesSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Bound]"); });

    const CRefusal refusal = RefusalOf([&] { set.Edit(); });

    EXPECT_EQ(refusal.Code, AFX_SQL_ERROR_TEXT_WAS_CUT);
    EXPECT_NE(refusal.Text.find("a date of it cannot be read"), std::string::npos) << refusal.Text;
}

/// On the server whose driver makes dates up: the doubtful one of many is read again, in its place.
class MadeUpDatesTest : public OddDatesTest
{
};

TEST_P(MadeUpDatesTest, OneAmongManyIsFound)
{
    Execute(u"INSERT INTO [Free] SELECT CASE WHEN g = 150 THEN TIMESTAMP '10000-01-01' ELSE "
            u"CURRENT_DATE::timestamp END, DATE '2024-01-01' + g FROM generate_series(1, 300) AS "
            u"g");
    CDatesSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Free] ORDER BY [day]"); });
    int row = 0;
    for (; !set.IsEOF(); set.MoveNext())
        EXPECT_EQ(set.IsFieldCut(CDatesSet::MOMENT), ++row == 150) << row;
    EXPECT_EQ(row, 300);
}

UTILITY_ON_ALL_SERVERS(OddDatesTest);

UTILITY_ON_SERVERS(UnreadableDatesTest);

INSTANTIATE_TEST_SUITE_P(Servers, MadeUpDatesTest, testing::Values(EServer::PostgreSQL),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

} // namespace utility
