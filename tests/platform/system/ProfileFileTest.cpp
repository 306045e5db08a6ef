#include "platform/system/ProfileFile.h"

#include "platform/base/LastError.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

CString ValueIn(std::string_view bytes, const char16_t* section, const char16_t* key)
{
    CProfileFile file;
    file.Parse(bytes);
    const CString* value = file.FindValue(section, key);
    return value ? *value : CString(u"(none)");
}

} // namespace

TEST(ProfileFileTest, ValuesAreFoundAndKeptAsTheyStand)
{
    struct CCase
    {
        const char* m_File;
        const char16_t* m_Value;
    };
    for (const CCase& test :
         {CCase{"[S]\nk=v", u"v"}, CCase{"[s]\r\n K\t=v\r\n", u"v"},
          CCase{"[S]\nk= \"v\" ", u" \"v\" "}, CCase{"[S]\nk=a=b", u"a=b"},
          CCase{"[S]\nk=first\nK=second", u"first"}, CCase{"[S]\nx=1\n[T]\ny=2\n[s]\nk=v", u"v"},
          CCase{"[S] behind\nk=v", u"v"}, CCase{"[S\nk=v", u"v"}, CCase{"[S]\n;k=v", u"(none)"},
          CCase{"[S]\nk", u"(none)"}, CCase{"k=v\n[S]", u"(none)"}, CCase{"", u"(none)"}})
    {
        SCOPED_TRACE(test.m_File);
        EXPECT_EQ(ValueIn(test.m_File, u"S", u"k"), test.m_Value);
    }
}

TEST(ProfileFileTest, EncodingsAreToldApart)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(ValueIn("[S]\nk=\xC3\xA9"sv, u"S", u"k"), u"é");
    EXPECT_EQ(ValueIn("\xEF\xBB\xBF[S]\nk=\xC3\xA9"sv, u"S", u"k"), u"é");
    EXPECT_EQ(ValueIn("[S]\nk=\xE9\x80"sv, u"S", u"k"), u"é€");
    EXPECT_EQ(ValueIn("\xFF\xFE[\0S\0]\0\n\0k\0=\0\xE9\0\0\xD8"sv, u"S", u"k"), u"é\xD800");
    EXPECT_EQ(ValueIn("\xFF\xFE[\0S\0]\0\n\0k\0=\0v\0\n"sv, u"S", u"k"), u"v");
}

TEST(ProfileFileTest, WhatIsWrittenIsAsciiOrUtf16)
{
    CProfileFile file;
    file.SetValue(u"S", u"a", u"1");
    file.SetValue(u"s", u"b", u"2");
    file.SetValue(u"S", u"A", u"3");
    file.AddSection(u"Empty");
    EXPECT_EQ(file.Format(), "[S]\r\na=3\r\nb=2\r\n[Empty]\r\n");

    file.DeleteValue(u"S", u"A");
    file.DeleteSection(u"empty");
    file.SetValue(u"T", u"c", u"é");
    EXPECT_EQ(file.Format().substr(0, 8), std::string("\xFF\xFE[\0S\0]\0", 8));
    EXPECT_EQ(ValueIn(file.Format(), u"T", u"c"), u"é");
    EXPECT_EQ(ValueIn(file.Format(), u"S", u"b"), u"2");
    EXPECT_EQ(ValueIn(file.Format(), u"S", u"a"), u"(none)");
}

TEST(ProfileFileTest, OnlyWhatALineGivesBackCanStand)
{
    struct CCase
    {
        const char16_t* m_Section;
        const char16_t* m_Key;
        const char16_t* m_Value;
        bool m_Can;
    };
    for (const CCase& test : {CCase{u"S", u"k", u" v= ", true}, CCase{u"S", u"k", u"", true},
                              CCase{u"S", u"k", u"a\nb", false}, CCase{u"S", u"k", u"a\r", false},
                              CCase{u"S", u"a=b", u"", false}, CCase{u"S", u"k ", u"", false},
                              CCase{u"S", u"", u"", false}, CCase{u"S", u";k", u"", false},
                              CCase{u"S", u"[k", u"", false}, CCase{u"S]", u"k", u"", false}})
        EXPECT_EQ(CProfileFile::CanHold(test.m_Section, test.m_Key, test.m_Value), test.m_Can)
            << testing::PrintToString(test.m_Key) << testing::PrintToString(test.m_Value);
}

TEST(ProfileFileTest, BuffersAreCutAndListsEndTwice)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a.ini", "[One]\r\nab=12345\r\ncd=\r\n[Two]\r\n");
    SetLastError(77);
    std::u16string buffer(16, u'#');

    EXPECT_EQ(GetPrivateProfileStringW(u"one", u"AB", u"d", buffer.data(), 16, path), 5U);
    EXPECT_EQ(std::u16string_view(buffer.data()), u"12345");
    EXPECT_EQ(GetPrivateProfileStringW(u"One", u"ab", u"d", buffer.data(), 4, path), 3U);
    EXPECT_EQ(std::u16string_view(buffer.data()), u"123");
    EXPECT_EQ(GetPrivateProfileStringW(u"One", u"none", u"d", buffer.data(), 16, path), 1U);
    EXPECT_EQ(GetPrivateProfileStringW(u"One", nullptr, u"", buffer.data(), 16, path), 6U);
    EXPECT_EQ(buffer.substr(0, 7), std::u16string(u"ab\0cd\0\0", 7));
    EXPECT_EQ(GetPrivateProfileStringW(u"One", nullptr, u"", buffer.data(), 6, path), 4U);
    EXPECT_EQ(buffer.substr(0, 6), std::u16string(u"ab\0c\0\0", 6));
    EXPECT_EQ(GetPrivateProfileStringW(nullptr, nullptr, u"", buffer.data(), 16, path), 8U);
    EXPECT_EQ(GetLastError(), 77U);
}

TEST(ProfileFileTest, OneValueIsWrittenOrTheFileStays)
{
    const CTemporaryFolder folder;
    const CString path = folder.PathOf(u"a.ini");

    EXPECT_TRUE(WritePrivateProfileStringW(u"S", u"k", u"v", path));
    EXPECT_TRUE(WritePrivateProfileStringW(u"S", u"l", u"w", path));
    EXPECT_FALSE(WritePrivateProfileStringW(u"S", u"a=b", u"v", path));
    EXPECT_EQ(folder.Read(u"a.ini"), "[S]\r\nk=v\r\nl=w\r\n");

    EXPECT_TRUE(WritePrivateProfileStringW(u"S", u"k", nullptr, path));
    EXPECT_EQ(folder.Read(u"a.ini"), "[S]\r\nl=w\r\n");
    EXPECT_TRUE(WritePrivateProfileStringW(u"S", nullptr, nullptr, path));
    EXPECT_EQ(folder.Read(u"a.ini"), "");
    EXPECT_FALSE(WritePrivateProfileStringW(u"S", u"k", u"v", folder.PathOf(u"none\\a.ini")));
    EXPECT_EQ(folder.List(), std::vector<std::string>{"a.ini"});
}

} // namespace utility
