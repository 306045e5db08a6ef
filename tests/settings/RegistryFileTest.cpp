#include "frame/Application.h"
#include "platform/base/Encoding.h"
#include "platform/base/collections/ByteArray.h"
#include "platform/base/collections/StringArray.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace utility
{

namespace
{

class RegistryFileTest : public testing::Test
{
protected:
    RegistryFileTest() : m_App(CAppRegistry().GetKey(), HKEY_CURRENT_USER)
    {
        CApplication::SetRegistryName(u"Tool");
        CApplication::SetProductName(u"Product");
        m_App.SetKey(CAppRegistry().GetKey(), nullptr);
    }

    CString PathOf(const char16_t* name) const { return m_Files.PathOf(name); }

    CSettingsSandbox m_Sandbox;
    CStoreFolder m_Store;
    CTemporaryFolder m_Files;
    CRegistry m_App;
};

CByteArray Bytes(int count)
{
    CByteArray bytes;
    for (int at = 0; at < count; ++at)
        bytes.Add(static_cast<BYTE>(at * 7));
    return bytes;
}

} // namespace

TEST_F(RegistryFileTest, TheFileHasItsLaidDownBytes)
{
    ASSERT_TRUE(m_App.SetValue(u"Text", u"abcd"));
    ASSERT_TRUE(m_App.SetValue(u"Number", -5));
    ASSERT_TRUE(m_App.SetValue(u"Wide", std::int64_t{1})); // of a type that is left out
    const CByteArray bytes = Bytes(2);
    ASSERT_TRUE(CAppRegistry(u"Child").SetValue(u"[x]", bytes));

    ASSERT_TRUE(m_App.SaveToFile(PathOf(u"a.cfg"), u"", nullptr));

    // The sum by hand: "1:ab" is 003A0031 and "cd" 00006463, "4:-5" 003A0034, "3:AA" 003A0033 and
    // "HA" 00004148, "1" 00000031.
    const unsigned sum =
        0x003A0031U ^ 0x00006463U ^ 0x003A0034U ^ 0x003A0033U ^ 0x00004148U ^ 0x31U;
    EXPECT_EQ(m_Files.Read(u"a.cfg"),
              "[Tool]\r\nText=1:abcd\r\nNumber=4:-5\r\ncv=1\r\nptn_Child1=Child\r\n"
              "cs=" +
                  std::to_string(sum) + "\r\n[Tool.Child]\r\n@[x]@=3:AAHA\r\n");
}

TEST_F(RegistryFileTest, ValuesAtTheSplitLimitComeBackAndTheSumIsConfirmed)
{
    for (const int length : {0, 1, 248, 249, 498, 1000, 2047})
    {
        CString name;
        name.Format(u"text%d", length);
        ASSERT_TRUE(m_App.SetValue(name, CString(u'q', length)));
    }
    for (const int length : {0, 124, 125, 200, 1000})
    {
        CString name;
        name.Format(u"bytes%d", length);
        ASSERT_TRUE(m_App.SetValue(name, Bytes(length)));
    }
    ASSERT_TRUE(m_App.SetValue(u"Ω", u"é  "));
    const CString file = PathOf(u"a.cfg");
    ASSERT_TRUE(m_App.SaveToFile(file, u"", nullptr));

    const auto script = (std::filesystem::path(UTILITY_TEST_DATA) / "../../dev/check-config-sum.py")
                            .lexically_normal();
    const std::string command = "python3 " + script.string() + " " + DiskPathBytes(file);
    EXPECT_EQ(std::system(command.c_str()), 0);

    ASSERT_TRUE(m_App.DeleteAllValues());
    ASSERT_TRUE(m_App.LoadFromFile(file, u""));
    CByteArray bytes;
    EXPECT_TRUE(m_App.GetValue(u"bytes200", bytes));
    ASSERT_EQ(bytes.GetSize(), 200);
    EXPECT_EQ(bytes[199], Bytes(200)[199]);
    CString text;
    EXPECT_TRUE(m_App.GetValue(u"text1000", text));
    EXPECT_EQ(text, CString(u'q', 1000));
    EXPECT_TRUE(m_App.GetValue(u"Ω", text));
    EXPECT_EQ(text, u"é  ");
    DWORD type = 0;
    DWORD size = 0;
    EXPECT_TRUE(m_App.QueryValue(u"text2047", type, nullptr, size));
    EXPECT_EQ(size, 4096U);
}

TEST_F(RegistryFileTest, AnAlteredFileIsRefusedAndTheStoreStays)
{
    ASSERT_TRUE(m_App.SetValue(u"Text", u"abcd"));
    ASSERT_TRUE(m_App.SaveToFile(PathOf(u"a.cfg"), u"", nullptr));
    std::string bytes = m_Files.Read(u"a.cfg");
    const std::size_t at = bytes.find("abcd");
    ASSERT_NE(at, std::string::npos);
    bytes[at + 2] = 'x';
    m_Files.MakeFile(u"b.cfg", bytes);
    m_Files.MakeFile(u"c.cfg", bytes.substr(0, bytes.find("cs=")));

    ASSERT_TRUE(m_App.SetValue(u"Text", u"now"));
    EXPECT_FALSE(m_App.LoadFromFile(PathOf(u"b.cfg"), u""));
    EXPECT_FALSE(m_App.LoadFromFile(PathOf(u"c.cfg"), u""));
    EXPECT_FALSE(m_App.LoadFromFile(PathOf(u"none.cfg"), u""));

    CString text;
    EXPECT_TRUE(m_App.GetValue(u"Text", text));
    EXPECT_EQ(text, u"now");
}

TEST_F(RegistryFileTest, AFileIsNeverLoadedOutsideTheApplication)
{
    CRegistry other(u"Software\\Elsewhere", HKEY_CURRENT_USER);
    ASSERT_TRUE(other.SetValue(u"v", 1));
    ASSERT_TRUE(other.SaveToFile(PathOf(u"a.cfg"), u"", nullptr));

    EXPECT_FALSE(other.LoadFromFile(PathOf(u"a.cfg"), u""));
    EXPECT_FALSE(m_App.LoadFromFile(PathOf(u"a.cfg"), u""));
}

TEST_F(RegistryFileTest, WhatNoLineCanHoldFailsTheSaveAndLeavesTheFile)
{
    for (const auto& [name, value] :
         {std::pair(u"n", u"two\nlines"), std::pair(u"a=b", u"x"), std::pair(u" n", u"x"),
          std::pair(u";n", u"x"), std::pair(u"[n", u"x"), std::pair(u"ptn_Child1", u"x")})
    {
        SCOPED_TRACE(ToUtf8(name));
        m_Files.MakeFile(u"a.cfg", "old");
        ASSERT_TRUE(m_App.SetValue(name, value));
        EXPECT_FALSE(m_App.SaveToFile(PathOf(u"a.cfg"), u"", nullptr));
        EXPECT_EQ(m_Files.Read(u"a.cfg"), "old");
        ASSERT_TRUE(m_App.DeleteValue(name));
    }
    ASSERT_TRUE(CAppRegistry(u"a\\b").SetValue(u"v", 1));
    ASSERT_TRUE(CAppRegistry(u"a.b").SetValue(u"v", 1));
    EXPECT_FALSE(m_App.SaveToFile(PathOf(u"a.cfg"), u"", nullptr));
}

TEST_F(RegistryFileTest, ExcludedValuesAreLeftOutWhole)
{
    ASSERT_TRUE(CAppRegistry(u"Child").SetValue(u"Keep", 1));
    ASSERT_TRUE(CAppRegistry(u"Child").SetValue(u"Drop", Bytes(300)));
    CStringArray exclude;
    exclude.Add(u"Child\\Drop");
    exclude.Add(u"NoSeparator");

    ASSERT_TRUE(m_App.SaveToFile(PathOf(u"a.cfg"), u"", &exclude));

    const std::string bytes = m_Files.Read(u"a.cfg");
    EXPECT_EQ(bytes.find("Drop"), std::string::npos);
    EXPECT_NE(bytes.find("Keep=4:1"), std::string::npos);
}

} // namespace utility
