#include "frame/Application.h"
#include "platform/base/Encoding.h"
#include "platform/base/collections/ByteArray.h"
#include "platform/base/collections/StringArray.h"
#include "settings/AppRegistry.h"
#include "settings/ConfigurationFault.h"

#include "support/ScriptedUser.h"
#include "support/SettingsSandbox.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

constexpr unsigned SUM_OF_ABCD = 0x003A0031U ^ 0x00006463U; // "1:ab", "cd"

class ConfigurationLoadTest : public testing::Test
{
protected:
    ConfigurationLoadTest()
    {
        CApplication::SetRegistryName(u"Tool");
        CApplication::SetProductName(u"Product");
        m_App = CRegistry(CAppRegistry().GetKey(), HKEY_CURRENT_USER);
    }
    ~ConfigurationLoadTest() override { CApplication::SetProductName(CString()); }

    bool Load(const std::string& bytes)
    {
        return m_App.LoadFromFile(m_Files.MakeFile(u"a.cfg", bytes), CString());
    }

    /// A load that takes 1 for the right sum.
    bool LoadTrusted(const std::string& bytes)
    {
        EXPECT_TRUE(m_App.SetValue(u"cfncsOver", 1));
        return Load(bytes);
    }

    static CString TextOf(const char16_t* key, const CString& name)
    {
        CString text = u"(none)";
        CAppRegistry(key).GetValue(name, text);
        return text;
    }

    CSettingsSandbox m_Sandbox;
    CStoreFolder m_Store;
    CTemporaryFolder m_Files;
    CScriptedUser m_User;
    CRegistry m_App;
};

} // namespace

TEST_F(ConfigurationLoadTest, SupportMayDeclareASumToBeRight)
{
    const std::string file = "[Tool]\r\nv=1:abcd\r\ncs=5\r\n";
    EXPECT_FALSE(Load(file));
    ASSERT_TRUE(m_App.SetValue(u"cfncsOver", 5));
    EXPECT_TRUE(Load(file));
    EXPECT_EQ(TextOf(u"", u"v"), u"abcd");
    EXPECT_FALSE(Load("[Tool]\r\nv=1:abcd\r\ncs=" + std::to_string(SUM_OF_ABCD) + "\r\n"));
    EXPECT_TRUE(m_User.GetBoxes().empty());
}

TEST_F(ConfigurationLoadTest, SupportIsShownBothSumsWhereItAsks)
{
    ASSERT_TRUE(CAppRegistry(u"Support").SetValue(u"ShowConfigChecksum", true));

    EXPECT_FALSE(Load("[Tool]\r\nv=1:abcd\r\ncs=5\r\n"));

    EXPECT_EQ(ToUtf8(m_User.GetOnlyText().View()),
              "Checksum in file is 5 but calculated as " + std::to_string(SUM_OF_ABCD));
    CString copied;
    ASSERT_TRUE(m_User.GetClipboardText(copied));
    EXPECT_EQ(ToUtf8(copied.View()), std::to_string(SUM_OF_ABCD));
}

TEST_F(ConfigurationLoadTest, TheFirstLineMayNameTheProduct)
{
    struct CCase
    {
        const char* m_Line;
        bool m_Loads;
    };
    for (const CCase& test :
         {CCase{"[TOOL]", true}, CCase{"  [tool] ", true}, CCase{"[Product 7]", true},
          CCase{"[PRODUCTS 7.1]", true}, CCase{"[Product]", false}, CCase{"[My Product 7]", false},
          CCase{"[Other]", false}, CCase{"", false}})
    {
        SCOPED_TRACE(test.m_Line);
        m_App.DeleteValue(u"v");
        EXPECT_EQ(LoadTrusted(std::string(test.m_Line) + "\r\nv=1:x\r\ncs=1\r\n"), test.m_Loads);
        EXPECT_EQ(TextOf(u"", u"v"), test.m_Loads ? u"x" : u"(none)");
    }
}

TEST_F(ConfigurationLoadTest, ChunksOutOfOrderDropTheirValueAlone)
{
    EXPECT_TRUE(LoadTrusted("[Tool]\r\n"
                            "good_BinCount=2\r\ngood_BinVal0=1:ab\r\ngood_BinVal1=cd\r\n"
                            "turned_BinCount=2\r\nturned_BinVal1=b\r\nturned_BinVal0=1:a\r\n"
                            "short_BinCount=2\r\nshort_BinVal0=1:a\r\nbetween=1:x\r\n"
                            "bytes_BinCount=2\r\nbytes_BinVal0=3:BAPB\r\nbytes_BinVal1=AAA\r\n"
                            "huge_BinCount=999999999\r\nhuge_BinVal0=1:a\r\n"
                            "odd=9:x\r\nnone\r\nbare=x\r\nlast=4:12x\r\ncs=1\r\n"));

    EXPECT_EQ(TextOf(u"", u"good"), u"abcd");
    EXPECT_EQ(TextOf(u"", u"between"), u"x");
    for (const char16_t* name : {u"turned", u"short", u"huge", u"odd", u"bare"})
        EXPECT_EQ(TextOf(u"", name), u"(none)") << testing::PrintToString(name);
    CByteArray bytes;
    EXPECT_TRUE(m_App.GetValue(u"bytes", bytes));
    ASSERT_EQ(bytes.GetSize(), 3);
    EXPECT_EQ(bytes[1], 0x1F);
    int number = 0;
    EXPECT_TRUE(m_App.GetValue(u"last", number));
    EXPECT_EQ(number, 12);
}

TEST_F(ConfigurationLoadTest, SectionsMetTwiceAreOneAndTakenTwiceAreRefused)
{
    EXPECT_TRUE(LoadTrusted("[Tool]\r\nptn_Child1=a\r\nptn_Child2=empty\r\ncs=1\r\n"
                            "[Tool.a]\r\nx=1:1\r\n[other]\r\nx=1:0\r\n[tool.A]\r\ny=1:2\r\n"));
    EXPECT_EQ(TextOf(u"a", u"x"), u"1");
    EXPECT_EQ(TextOf(u"a", u"y"), u"2");
    EXPECT_TRUE(CAppRegistry(u"empty").KeyExists());

    EXPECT_FALSE(LoadTrusted("[Tool]\r\nptn_Child1=b\r\nptn_Child2=b.c\r\ncs=1\r\n"
                             "[Tool.b]\r\nptn_Child1=c\r\n[Tool.b.c]\r\nx=1:1\r\n"));
    EXPECT_FALSE(CAppRegistry(u"b").KeyExists());
}

TEST_F(ConfigurationLoadTest, EachFaultIsNamed)
{
    struct CCase
    {
        const char* m_File;
        EConfigurationFault m_Fault;
    };
    for (const CCase& test :
         {CCase{"[Tool]\r\nv=1:abcd\r\n", EConfigurationFault::NoChecksum},
          CCase{"[Tool]\r\nv=1:abcd\r\ncs=5\r\n", EConfigurationFault::WrongChecksum},
          CCase{"[Other]\r\ncs=0\r\n", EConfigurationFault::OtherProgram},
          CCase{"[Tool]\r\nptn_Child1=a\r\nptn_Child2=A\r\ncs=0\r\n",
                EConfigurationFault::CannotStand},
          CCase{"[Tool]\r\ncs=0\r\n", EConfigurationFault::None}})
    {
        SCOPED_TRACE(test.m_File);
        EXPECT_EQ(Load(test.m_File), test.m_Fault == EConfigurationFault::None);
        EXPECT_EQ(GetConfigurationFault().m_Kind, test.m_Fault);
    }
    EXPECT_FALSE(m_App.LoadFromFile(m_Files.PathOf(u"none"), CString()));
    EXPECT_EQ(GetConfigurationFault().m_Kind, EConfigurationFault::FileUnreadable);
    EXPECT_FALSE(CRegistry(u"", HKEY_CURRENT_USER).SaveToFile(m_Files.PathOf(u"a"), u"", nullptr));
    EXPECT_EQ(GetConfigurationFault().m_Kind, EConfigurationFault::NoKey);
    EXPECT_FALSE(CAppRegistry(u"none").SaveToFile(m_Files.PathOf(u"a"), u"", nullptr));
    EXPECT_EQ(GetConfigurationFault().m_Kind, EConfigurationFault::KeyUnreadable);
    EXPECT_FALSE(m_App.SaveToFile(m_Files.PathOf(u"none\\a"), u"", nullptr));
    EXPECT_EQ(GetConfigurationFault().m_Kind, EConfigurationFault::FileUnwritable);
}

TEST_F(ConfigurationLoadTest, PartsThatWouldStandForAnotherValueFailTheSave)
{
    const CString file = m_Files.PathOf(u"a.cfg");
    for (const char16_t* other : {u"X_BINCOUNT", u"x_BinVal0", u"x_BinVal1"})
    {
        CAppRegistry key(u"Child");
        ASSERT_TRUE(key.SetValue(u"x", CString(u'q', 300)));
        ASSERT_TRUE(key.SetValue(other, 2));
        EXPECT_FALSE(m_App.SaveToFile(file, CString(), nullptr));
        EXPECT_EQ(GetConfigurationFault().m_Kind, EConfigurationFault::CannotStand);
        EXPECT_EQ(GetConfigurationFault().m_Place, u"x");
        ASSERT_TRUE(key.SetValue(u"x", u"short"));
        EXPECT_TRUE(m_App.SaveToFile(file, CString(), nullptr));
        ASSERT_TRUE(key.DeleteAllValues());
    }
}

TEST_F(ConfigurationLoadTest, AnExcludedValueTakesNoOtherWithIt)
{
    CAppRegistry key(u"Child");
    ASSERT_TRUE(key.SetValue(u"x", u"short"));
    ASSERT_TRUE(key.SetValue(u"x_BinCount", 2));
    CStringArray exclude;
    exclude.Add(u"Child\\x");
    ASSERT_TRUE(m_App.SaveToFile(m_Files.PathOf(u"a.cfg"), CString(), &exclude));

    const std::string bytes = m_Files.Read(u"a.cfg");
    EXPECT_EQ(bytes.find("short"), std::string::npos);
    EXPECT_NE(bytes.find("x_BinCount=4:2"), std::string::npos);
}

} // namespace utility
