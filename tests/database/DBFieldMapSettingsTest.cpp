#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/DBTableMap.h"
#include "platform/base/Encoding.h"

#include "support/FormatPage.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace utility
{
namespace
{

class DBFieldMapSettingsTest : public testing::Test
{
protected:
    static void AddColumns(CDBFieldMap& map, std::initializer_list<const char16_t*> names)
    {
        for (const char16_t* name : names)
            map.Add(new CDBFInfo(name));
    }

    void Load(CDBFieldMap& map) const { map.LoadSettings(m_File, u"Tool", u"Parts"); }

    std::string ReadFile() const { return m_Folder.Read(u"maps.xml"); }

    auto WriteTime() const
    {
        return std::filesystem::last_write_time(m_Folder.GetNativePath() / "maps.xml");
    }

    CTemporaryFolder m_Folder;
    CString m_File = m_Folder.PathOf(u"maps.xml");
};

TEST_F(DBFieldMapSettingsTest, KeptColumnsHoldAndNewOnesGetTheDefaults)
{
    CDBFieldMap saved;
    AddColumns(saved, {u"Id", u"Dropped", u"VALUE"});
    Load(saved);
    saved.FindField(u"Id")->SetMapTo(u"Part <number> & \"name\"");
    saved.FindField(u"Id")->SetLoad(false);
    saved.FindField(u"Id")->SetShow(false);
    saved.FindField(u"Id")->SetHyperlink(true);
    saved.FindField(u"Id")->SetCritical(true);
    saved.FindField(u"Dropped")->SetMapTo(u"Old");
    saved.FindField(u"VALUE")->SetCritical(false);
    saved.SetKeyField(u"Id");
    saved.SetPartNameField(u"VALUE");
    saved.SetTableVisible(true);
    saved.SaveSettings();

    CDBFieldMap loaded;
    AddColumns(loaded, {u"Id", u"VALUE", u"TOLERANCE", u"Value2", u"Tolerance2"});
    loaded.GetField(3)->SetHyperlink(true);
    loaded.GetField(3)->SetLoad(false);
    Load(loaded);

    const CDBFInfo& id = *loaded.GetField(0);
    EXPECT_EQ(id.GetMapTo(), u"Part <number> & \"name\"");
    EXPECT_FALSE(id.GetLoad() || id.GetShow());
    EXPECT_TRUE(id.GetHyperlink() && id.GetCritical());
    EXPECT_FALSE(loaded.GetField(1)->GetCritical()) << "as it was saved";
    EXPECT_TRUE(loaded.GetField(2)->GetCritical()) << "by its name";
    EXPECT_FALSE(loaded.GetField(3)->GetCritical());
    EXPECT_TRUE(loaded.GetField(3)->GetLoad() && loaded.GetField(3)->GetHyperlink());
    EXPECT_EQ(loaded.GetKeyField(), u"Id");
    EXPECT_EQ(loaded.GetPartNameField(), u"VALUE");
    EXPECT_TRUE(loaded.GetTableVisible());

    loaded.SaveSettings();
    CDBFieldMap again;
    AddColumns(again, {u"Dropped"});
    Load(again);
    EXPECT_EQ(again.GetField(0)->GetMapTo(), u"Old") << "settings of a dropped column stay";
}

TEST_F(DBFieldMapSettingsTest, CriticalByNameInCapitalsAlone)
{
    CDBFieldMap map;
    AddColumns(map, {u"PART_NUMBER", u"PARTNAME", u"VALUE", u"TOLERANCE", u"POWER", u"VOLTAGE",
                     u"Value", u"PART NUMBER", u"CURRENT"});
    Load(map);

    for (int index = 0; index < map.GetCount(); ++index)
        EXPECT_EQ(map.GetField(index)->GetCritical(), index < 6) << index;
}

TEST_F(DBFieldMapSettingsTest, EveryNameOfAColumnReadsBack)
{
    const char16_t* const names[] = {u"?column?", u"a<b>",         u"two words", u"a b=c",
                                     u"/x/",      u"!first",       u"R&D",       u"say \"x\"",
                                     u"it's",     u"\u2126 [ohm]", u"v1.2",      u"back\\slash",
                                     u"=",        u"a=b",          u"?",         u"x?"};
    for (const char16_t* name : names)
    {
        SCOPED_TRACE(ToUtf8(name));
        CDBFieldMap saved;
        AddColumns(saved, {u"First", name});
        saved.LoadSettings(m_File, u"Tool", CString(u"Table ") + name);
        saved.GetField(1)->SetMapTo(u"mapped");
        saved.GetField(1)->SetLoad(false);
        saved.SetKeyField(name);
        saved.SaveSettings();

        CDBFieldMap loaded;
        AddColumns(loaded, {u"First", name});
        loaded.LoadSettings(m_File, u"Tool", CString(u"Table ") + name);
        EXPECT_EQ(loaded.GetField(0)->GetMapTo(), u"First");
        EXPECT_EQ(loaded.GetField(1)->GetMapTo(), u"mapped");
        EXPECT_FALSE(loaded.GetField(1)->GetLoad());
        EXPECT_EQ(loaded.GetKeyField(), name);
    }
}

TEST_F(DBFieldMapSettingsTest, WritesNothingWithoutAFileOrWithoutAChange)
{
    CDBFieldMap map;
    AddColumns(map, {u"Id"});
    map.SaveSettings();
    EXPECT_FALSE(m_Folder.Exists(u"maps.xml"));

    Load(map);
    map.SaveSettings();
    const std::string first = ReadFile();
    EXPECT_NE(first.find("<Mappings>"), std::string::npos) << first;
    const auto written = WriteTime();
    map.SaveSettings();
    EXPECT_EQ(WriteTime(), written);
    map.GetField(0)->SetShow(false);
    map.SaveSettings();
    EXPECT_NE(ReadFile(), first);
}

TEST_F(DBFieldMapSettingsTest, WritesTheExampleOfItsFormatPage)
{
    CDBFieldMap map;
    AddColumns(map, {u"VALUE", u"?column?"});
    Load(map);
    map.GetField(1)->SetMapTo(u"R&D");
    map.SetKeyField(u"VALUE");
    map.SaveSettings();

    EXPECT_EQ(ReadFile(), ReadByteListing("field-map.md"));
}

TEST(DBTableMapTest, FindsTablesInAnyCaseAndOwnsTheirMaps)
{
    CDBTableMap tables;
    auto* const parts = new CDBFieldMap;
    tables.SetAt(u"Parts", parts);
    CDBFieldMap*& slot = tables[u"STOCK"];
    EXPECT_EQ(slot, nullptr);
    slot = new CDBFieldMap;

    EXPECT_EQ(tables[u"parts"], parts);
    CDBFieldMap* found = nullptr;
    EXPECT_TRUE(tables.Lookup(u"stock", found));
    EXPECT_EQ(found, slot);
    EXPECT_FALSE(tables.Lookup(u"Absent", found));
    EXPECT_FALSE(tables.RemoveTable(u"Absent"));
    EXPECT_TRUE(tables.RemoveTable(u"Stock"));
    EXPECT_EQ(tables.GetCount(), 1);

    EXPECT_TRUE(tables.RemoveKey(u"PARTS"));
    EXPECT_EQ(parts->GetCount(), 0) << "it is alive";
    delete parts;
    tables[u"None"] = nullptr;
    tables.SetAt(u"Some", new CDBFieldMap);
    tables.RemoveNullEntries();
    EXPECT_EQ(tables.GetCount(), 1);
    tables.Empty();
    EXPECT_TRUE(tables.IsEmpty());
}

} // namespace
} // namespace utility
