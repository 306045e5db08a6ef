#include "database/DatabaseFixture.h"
#include "database/ODBCRecordset.h"
#include "database/TraceLog.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// A table with one row of one text, whose column is declared as given.
class ODBCRecordsetTextTest : public CSourceTest
{
protected:
    void Store(const CString& declared, const CString& text)
    {
        Execute(u"CREATE TABLE [Texts] ([Id] INTEGER NOT NULL PRIMARY KEY, [Body] " + declared +
                u")");
        Execute(u"INSERT INTO [Texts] VALUES (1, '" + text + u"')");
        Execute(u"INSERT INTO [Texts] VALUES (2, 'short')");
        ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Texts] ORDER BY [Id]"));
    }

    CODBCRecordset m_Set{&m_Database};
};

TEST_P(ODBCRecordsetTextTest, CutsALongTextAtItsColumnsLimitAndRefusesToEditItsRow)
{
    const CTraceLog log(u"ODBCRecordset");
    // MariaDB's TEXT ends below 70 KB; PostgreSQL's driver tells 8190 for TEXT, the others more
    // than the most.
    const int limit = On(8196, 8190, 8196);
    Store(On<const char16_t*>(u"TEXT", u"TEXT", u"MEDIUMTEXT"), CString(u'x', 70 * 1024));

    EXPECT_EQ(m_Set.GetString(u"Body"), CString(u'x', limit));
    EXPECT_TRUE(m_Set.IsFieldCut(1));
    const std::string line = "Text of [BODY] is cut at " + std::to_string(limit) + " characters\n";
    EXPECT_NE(log.Read().find(line), std::string::npos) << log.Read();
    EXPECT_NE(RefusalOf([&] { m_Set.Edit(); }), "");

    m_Set.MoveNext();
    EXPECT_FALSE(m_Set.IsFieldCut(1));
    EXPECT_EQ(RefusalOf([&] { m_Set.Edit(); }), "");
}

TEST_P(ODBCRecordsetTextTest, HoldsTextsUpToTheirColumnsLimit)
{
    const CString text = CString(u'a', 598) + u"\u03A9z";
    Store(u"VARCHAR(600)", text);

    EXPECT_EQ(m_Set.GetString(u"Body"), text);
    EXPECT_FALSE(m_Set.IsFieldCut(1));
}

TEST_P(ODBCRecordsetTextTest, NeverCutsWithinASurrogatePair)
{
    const int limit = On(8196, 8190, 8196);
    const CString full(u'x', limit - 1);
    Store(On<const char16_t*>(u"TEXT", u"TEXT", u"MEDIUMTEXT"), full + u"\U0001F600 and more");

    EXPECT_EQ(m_Set.GetString(u"Body"), full);
    EXPECT_TRUE(m_Set.IsFieldCut(1));
}

TEST_P(ODBCRecordsetTextTest, HoldsAtLeast512UnitsOfANarrowColumn)
{
    const bool storesMore = GetParam() == EServer::SQLite; // which heeds no declared width
    Store(u"VARCHAR(10)", CString(u'x', storesMore ? 600 : 10));

    EXPECT_EQ(m_Set.GetString(u"Body"), CString(u'x', storesMore ? 512 : 10));
    EXPECT_EQ(m_Set.IsFieldCut(1), storesMore);
}

TEST_P(ODBCRecordsetTextTest, TracesWhatIsBound)
{
    const CTraceLog log(u"ODBCRecordset, ODBCRecordsetDetails");
    Store(u"VARCHAR(20)", u"text");

    const std::string lines = log.Read();
    const std::string types = On("SQLType=12", "SQLType=-9", "SQLType=-9");
    for (const std::string& line :
         {std::string("CODBCRecordset::InitRecord\n"),
          std::string("CODBCRecordset::DoFieldExchange\n"),
          std::string("FieldName[0]=[ID], Type=4\n"), std::string("FieldName[1]=[BODY], Type=8\n"),
          "RFX_Text([BODY], Precision=20, " + types + ")\n"})
        EXPECT_NE(lines.find(line), std::string::npos) << line << "in\n" << lines;
}

UTILITY_ON_ALL_SOURCES(ODBCRecordsetTextTest);

} // namespace
} // namespace utility
