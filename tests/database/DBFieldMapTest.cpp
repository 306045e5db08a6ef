#include "database/DBFieldMap.h"

#include "database/DBFInfo.h"
#include "platform/base/Encoding.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/db/DBVariant.h"
#include "platform/db/OdbcTypes.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(DBFInfoTest, IsMappedToItselfLoadedAndShownAtFirst)
{
    const CDBFInfo info(u"Value", DBVT_LONG);

    EXPECT_EQ(info.GetName(), u"Value");
    EXPECT_EQ(info.GetMapTo(), u"Value");
    EXPECT_EQ(info.GetType(), DBVT_LONG);
    EXPECT_TRUE(info.GetLoad());
    EXPECT_TRUE(info.GetShow());
    EXPECT_FALSE(info.GetCritical());
    EXPECT_FALSE(info.GetHyperlink());
    EXPECT_EQ(info.GetSqlType(), 0u);
    EXPECT_EQ(info.GetParseType(), 0u);
    EXPECT_EQ(CDBFInfo(u"Value").GetType(), 0u);
}

TEST(DBFInfoTest, TellsWhatItsTypesMean)
{
    const struct
    {
        DWORD m_Type;
        short m_SqlType;
        const char*
            m_Predicates; // date, string, formats as double, numeric as string, needs a number
    } rows[] = {{DBVT_NULL, 0, "..f.."},
                {DBVT_BOOL, SQL_BIT, "..f.."},
                {DBVT_UCHAR, SQL_TINYINT, "..f.."},
                {DBVT_SHORT, SQL_SMALLINT, "..f.r"},
                {DBVT_LONG, SQL_INTEGER, "..f.r"},
                {DBVT_SINGLE, SQL_REAL, "..f.r"},
                {DBVT_DOUBLE, SQL_DOUBLE, "..f.r"},
                {DBVT_DATE, SQL_TIMESTAMP, "d...."},
                {DBVT_STRING, SQL_VARCHAR, ".s..."},
                {DBVT_STRING, SQL_BIGINT, ".s..."},
                {DBVT_STRING, SQL_NUMERIC, ".s.nr"},
                {DBVT_ASTRING, SQL_DECIMAL, ".s.nr"},
                {DBVT_WSTRING, SQL_WVARCHAR, ".s..."},
                {DBVT_DOUBLE, SQL_NUMERIC, "..f.r"},
                {DBVT_BINARY, SQL_BINARY, "..f.."}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE("type " + std::to_string(row.m_Type) + ", SQL " +
                     std::to_string(row.m_SqlType));
        CDBFInfo info(u"c", row.m_Type);
        info.SetSqlType(static_cast<DWORD>(row.m_SqlType));
        std::string found;
        found += info.IsDate() ? 'd' : '.';
        found += info.IsString() ? 's' : '.';
        found += info.CanFormatAsDouble() ? 'f' : '.';
        found += info.IsNumericAsString() ? 'n' : '.';
        found += info.RequiresNumericValue() ? 'r' : '.';
        EXPECT_EQ(found, row.m_Predicates);
    }
}

TEST(DBFInfoTest, ComparesNamesWithoutCaseAndAllElseExactly)
{
    const CDBFInfo info(u"Value", DBVT_LONG);
    const auto differs = [&](auto change)
    {
        CDBFInfo other(info);
        EXPECT_TRUE(other == info);
        change(other);
        return !(other == info);
    };

    EXPECT_FALSE(differs([](CDBFInfo& other) { other.SetName(u"VALUE"); }));
    EXPECT_FALSE(differs([](CDBFInfo& other) { other.SetMapTo(u"value"); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetName(u"Value2"); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetMapTo(u"Part"); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetType(DBVT_DOUBLE); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetLoad(false); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetShow(false); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetCritical(true); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetHyperlink(true); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetSqlType(4); }));
    EXPECT_TRUE(differs([](CDBFInfo& other) { other.SetParseType(2); }));
}

std::string NamesOf(const CDBFieldMap& map)
{
    std::string names;
    for (const CDBFInfo* field : map.GetFields())
        names += ToUtf8(field->GetName().View()) + " ";
    return names;
}

class DBFieldMapTest : public testing::Test
{
protected:
    DBFieldMapTest()
    {
        for (const char16_t* name : {u"Id", u"Value", u"Maker"})
            m_Map.Add(new CDBFInfo(name));
    }

    CDBFieldMap m_Map;
};

TEST_F(DBFieldMapTest, FindsEntriesByNameAndByToolFieldInAnyCase)
{
    m_Map.GetField(1)->SetMapTo(u"Nominal");

    EXPECT_EQ(m_Map.FindField(u"VALUE"), m_Map.GetField(1));
    EXPECT_EQ(m_Map.FindFieldMappedTo(u"nominal"), m_Map.GetField(1));
    EXPECT_EQ(m_Map.FindFieldMappedTo(u"Value"), nullptr);
    m_Map.Add(new CDBFInfo(u""));
    EXPECT_EQ(m_Map.FindField(u""), nullptr);
    EXPECT_EQ(m_Map.FindFieldMappedTo(u""), nullptr);
    EXPECT_EQ(m_Map.FindField(u"Absent"), nullptr);
}

TEST_F(DBFieldMapTest, DeletesTheFirstEntryOfAName)
{
    m_Map.Add(new CDBFInfo(u"VALUE"));

    m_Map.DeleteField(u"value");
    EXPECT_EQ(NamesOf(m_Map), "Id Maker VALUE ");
    m_Map.DeleteField(u"");
    m_Map.DeleteField(u"Absent");
    EXPECT_EQ(m_Map.GetCount(), 3);
    m_Map.Empty();
    EXPECT_EQ(m_Map.GetCount(), 0);
}

TEST_F(DBFieldMapTest, RefusesAWrongIndex)
{
    for (const int index : {-1, 3})
        try
        {
            m_Map.GetField(index);
            ADD_FAILURE() << index;
        }
        catch (CInvalidArgException* exception)
        {
            exception->Delete();
        }
}

TEST_F(DBFieldMapTest, CountsLoadedEntries)
{
    m_Map.GetField(0)->SetLoad(false);

    EXPECT_EQ(m_Map.GetLoadedCount(), 2);
}

TEST_F(DBFieldMapTest, MergesAnotherMapInsteadOfReplacing)
{
    CDBFieldMap other;
    other.Add(new CDBFInfo(u"Price", DBVT_DOUBLE));
    other.Add(new CDBFInfo(u"VALUE", DBVT_LONG));
    EXPECT_TRUE(other.SetKeyField(u"Price"));
    EXPECT_TRUE(other.SetPartNameField(u"VALUE"));
    other.SetTableName(u"Stock");
    other.SetTableVisible(true);
    other.SetTableUnuseable(true);
    CDBFInfo* value = m_Map.FindField(u"Value");

    m_Map = other;
    other.Empty(); // the entries are copies

    EXPECT_EQ(NamesOf(m_Map), "Id VALUE Maker Price ");
    EXPECT_EQ(m_Map.FindField(u"value"), value);
    EXPECT_EQ(value->GetType(), DBVT_LONG);
    EXPECT_EQ(m_Map.GetKeyField(), u"Price");
    EXPECT_EQ(m_Map.GetPartNameField(), u"VALUE");
    EXPECT_EQ(m_Map.GetTableName(), u"Stock");
    EXPECT_TRUE(m_Map.GetTableVisible());
    EXPECT_TRUE(m_Map.GetTableUnuseable());
}

} // namespace
} // namespace utility
