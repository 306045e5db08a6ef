#include "platform/base/Encoding.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using namespace utility;

namespace
{

/// Sets the default page for one test.
class CDefaultPage
{
public:
    explicit CDefaultPage(UINT page) { SetACP(page); }
    ~CDefaultPage() { SetACP(0); }
};

std::u16string Decode(UINT page, std::string_view bytes)
{
    return std::u16string(FromBytes(page, bytes).View());
}

constexpr UINT OWN_PAGES[] = {437,  850,  1250, 1251, 1252,  1253, 1254,
                              1255, 1256, 1257, 1258, 28591, 28605};

} // namespace

TEST(EncodingTest, BadPiecesOfUtf8GiveOneMarkEach)
{
    const struct
    {
        const char* m_Name;
        std::string m_Bytes;
        std::u16string m_Text;
    } rows[] = {
        {"sound", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z", u"a\u00E9\u20AC\U0001F600z"},
        {"stray tail bytes", "\x80\xBF", u"\uFFFD\uFFFD"},
        {"overlong two", "\xC0\xAF\xC1\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"overlong three", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"overlong four", "\xF0\x80\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"above the last", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"no lead", "\xF5\xFF", u"\uFFFD\uFFFD"},
        {"cut after two of three", "\xE2\x82", u"\uFFFD"},
        {"cut after three of four",
         "\xF0\x9F\x98"
         "a",
         u"\uFFFDa"},
        {"cut lead, then a letter", "\xC3(", u"\uFFFD("},
        {"cut, then a sound one", "\xE2\x82\xC3\xA9", u"\uFFFD\u00E9"},
        {"cut behind a block", std::string(8, 'a') + "\xF0\x9F",
         std::u16string(8, u'a') + u"\uFFFD"},
        {"zero byte", std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
        {"last of each length", "\x7F\xDF\xBF\xEF\xBF\xBF\xF4\x8F\xBF\xBF",
         u"\u007F\u07FF\uFFFF\U0010FFFF"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(Decode(CP_UTF8, row.m_Bytes), row.m_Text);
        const auto size = static_cast<int>(row.m_Bytes.size());
        EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, row.m_Bytes.data(), size, nullptr, 0),
                  static_cast<int>(row.m_Text.size()));
    }
}

TEST(EncodingTest, EachCharacterGoesThroughUtf8)
{
    for (char32_t character = 1; character <= 0x10FFFF; ++character)
    {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        char16_t units[2] = {static_cast<char16_t>(character), 0};
        if (character >= 0x10000)
        {
            units[0] = static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            units[1] = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
        const std::u16string_view text(units, character >= 0x10000 ? 2 : 1);
        const std::string bytes = ToUtf8(text);
        const std::size_t expected = character < 0x80      ? 1
                                     : character < 0x800   ? 2
                                     : character < 0x10000 ? 3
                                                           : 4;
        ASSERT_EQ(bytes.size(), expected) << std::hex << static_cast<unsigned>(character);
        ASSERT_TRUE(FromUtf8(bytes).View() == text) << std::hex << static_cast<unsigned>(character);
    }
}

TEST(EncodingTest, LoneSurrogatesWriteTheMark)
{
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ(ToUtf8(u"a\xD83D"), "a" + mark);
    EXPECT_EQ(ToUtf8(u"\xDE00z"), mark + "z");
    EXPECT_EQ(ToUtf8(u"\xD83D\xD83D\xDE00"), mark + "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(u"\xDE00\xD83D"), mark + mark);
}

// Short and long texts take two ways, and ASCII goes by blocks of eight.
TEST(EncodingTest, EachLengthAndPlaceOfALetterReadsBack)
{
    for (const std::size_t length : {1U, 7U, 8U, 9U, 17U, 1023U, 1024U, 1025U, 5000U})
        for (std::size_t place = 0; place<length; place += length> 20 ? length / 7 : 1)
        {
            std::u16string text(length, u'x');
            text[place] = u'\u20AC';
            const std::string bytes = ToUtf8(text);
            ASSERT_EQ(bytes.size(), length + 2);
            ASSERT_EQ(bytes.find("\xE2\x82\xAC"), place);
            ASSERT_TRUE(FromUtf8(bytes).View() == text) << length << " units, place " << place;
        }
}

// Long texts are counted by runs of 64 units before they are written.
TEST(EncodingTest, PairsAreCountedAcrossTheBordersOfRuns)
{
    for (const std::u16string_view piece :
         {u"\xD83D\xDE00", u"\xD83Dx", u"x\xDE00", u"\xDE00\xD83D"})
        for (std::size_t place = 60; place < 70; ++place)
        {
            std::u16string text(2000, u'x');
            text.replace(place, piece.size(), piece);
            text.replace(text.size() - piece.size(), piece.size(), piece);

            const std::string bytes = ToUtf8(text);

            const std::string pieceBytes = ToUtf8(piece);
            ASSERT_EQ(bytes.size(), text.size() + 2 * (pieceBytes.size() - piece.size()));
            ASSERT_EQ(bytes.substr(place, pieceBytes.size()), pieceBytes);
            ASSERT_TRUE(bytes.ends_with(pieceBytes));
        }
}

TEST(EncodingTest, EachByteOfASingleBytePageReadsBack)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const UINT page : OWN_PAGES)
    {
        SCOPED_TRACE(page);
        const CString text = FromBytes(page, all);
        ASSERT_EQ(text.GetLength(), 256);
        EXPECT_TRUE(text.Left(128).View() == FromUtf8(all.substr(0, 128)).View());
        EXPECT_EQ(ToBytes(page, text.View()), all);
    }
}

TEST(EncodingTest, PagesHoldTheirLetters)
{
    const struct
    {
        UINT m_Page;
        std::string m_Bytes;
        std::u16string m_Text;
    } rows[] = {
        {437, "\x81\xE1\xFF", u"\u00FC\u00DF\u00A0"},
        {850, "\x9B\xD5\xFE", u"\u00F8\u0131\u25A0"},
        {1250, "\x8A\xB9", u"\u0160\u0105"},
        {1251, "\xC0\xFF\xB8", u"\u0410\u044F\u0451"},
        {1252, "\x80\x81\x93\xE9", u"\u20AC\u0081\u201C\u00E9"}, // 0x81: the control of its number
        {1253, "\xC1\xD2\xF9", u"\u0391\u00D2\u03C9"},
        {1254, "\xDD\xFE", u"\u0130\u015F"},
        {1255, "\xE0\xFA", u"\u05D0\u05EA"},
        {1256, "\xC7\x81", u"\u0627\u067E"},
        {1257, "\xE0\xA1", u"\u0105\u00A1"},
        {1258, "\xD5\xFE", u"\u01A0\u20AB"},
        {20127, "a\xE9", u"a\uFFFD"},
        {28591, "\x80\xFF", u"\u0080\u00FF"},
        {28605, "\xA4\xBD", u"\u20AC\u0153"},
        // through the system's converter
        {20866, "\xC1\xE1", u"\u0430\u0410"},
        {932, "\x83\x65\x83\x58", u"\u30C6\u30B9"},
        {936, "\xD6\xD0", u"\u4E2D"},
        {54936, "\x94\x39\xFC\x36", u"\U0001F600"},
        {28592, "\xB1", u"\u0105"},
        {866, "\x80", u"\u0410"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Page);
        EXPECT_EQ(Decode(row.m_Page, row.m_Bytes), row.m_Text);
        const std::string expected = row.m_Page == 20127 ? "a?" : row.m_Bytes;
        EXPECT_EQ(ToBytes(row.m_Page, row.m_Text), expected);
    }
}

TEST(EncodingTest, WhatAPageLacksBecomesTheDefault)
{
    const struct
    {
        UINT m_Page;
        std::u16string m_Text;
        std::string m_Bytes;
        bool m_Used;
    } rows[] = {
        {1252, u"\u00E9\u0416!", "\xE9*!", true},
        {1252, u"A\u0100", "A*", true}, // no look-alike: not "A"
        {1252, u"\U0001F600", "**", true},
        {20127, u"\u00E9\uFFFD", "**", true},
        {932, u"a\u0416\u011Bb\xD83D", "a\x84\x47*b*", true},
        {50220, u"\u4E2D\u011B\u4E2D", "\x1B$BCf\x1B(B*\x1B$BCf\x1B(B", true},
        {1252, u"abc", "abc", false},
        {932, u"abc", "abc", false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.m_Text));
        char bytes[40];
        BOOL used = TRUE;
        const int length =
            WideCharToMultiByte(row.m_Page, 544, row.m_Text.data(),
                                static_cast<int>(row.m_Text.size()), bytes, 40, "*", &used);
        EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(length)), row.m_Bytes);
        EXPECT_EQ(used, row.m_Used ? TRUE : FALSE);
    }
    EXPECT_EQ(ToBytes(1252, u"\u0416"), "?");
}

TEST(EncodingTest, BadBytesOfASystemPageAreMarked)
{
    EXPECT_EQ(Decode(932, "a\xFF"
                          "b"),
              u"a\uFFFDb");
    EXPECT_EQ(Decode(936, "\xD6"), u"\uFFFD"); // cut
}

TEST(EncodingTest, BuffersGetAllOrNothing)
{
    for (const UINT page : {CP_UTF8, 1252U, 20866U})
    {
        SCOPED_TRACE(page);
        char16_t units[8] = u"-------";
        EXPECT_EQ(MultiByteToWideChar(page, 0, "abc", -1, nullptr, 0), 4);
        EXPECT_EQ(MultiByteToWideChar(page, 0, "abc", 3, units, 2), 0);
        EXPECT_EQ(units[0], u'-');
        EXPECT_EQ(MultiByteToWideChar(page, 0, "abc", -1, units, 4), 4);
        EXPECT_EQ(std::u16string(units), u"abc");
        EXPECT_EQ(MultiByteToWideChar(page, 0, nullptr, 3, units, 4), 0);

        char bytes[8] = "-------";
        EXPECT_EQ(WideCharToMultiByte(page, 0, u"abc", 3, nullptr, 0, nullptr, nullptr), 3);
        EXPECT_EQ(WideCharToMultiByte(page, 0, u"abc", -1, bytes, 3, nullptr, nullptr), 0);
        EXPECT_EQ(bytes[0], '-');
        EXPECT_EQ(WideCharToMultiByte(page, 0, u"abc", -1, bytes, 8, nullptr, nullptr), 4);
        EXPECT_STREQ(bytes, "abc");
    }
}

TEST(EncodingTest, UnknownPageGivesNothing)
{
    char16_t units[4];
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "abc", 3, units, 4), 0);
    EXPECT_EQ(WideCharToMultiByte(12345, 0, u"abc", 3, nullptr, 0, nullptr, nullptr), 0);
    EXPECT_EQ(ToBytes(12345, u"abc"), "");
    EXPECT_TRUE(FromBytes(12345, "abc").IsEmpty());
}

TEST(EncodingTest, DefaultPageCanBeOverridden)
{
    const UINT localePage = GetACP();
    {
        const CDefaultPage page(1252);
        EXPECT_EQ(GetACP(), 1252U);
        EXPECT_EQ(std::u16string(CString("\xE9").View()), u"\u00E9");
        EXPECT_EQ(std::u16string(CString("\xE9zz", 2).View()), u"\u00E9z");
        EXPECT_EQ(ToBytes(CP_ACP, u"\u20AC"), "\x80");
    }
    EXPECT_EQ(GetACP(), localePage);
    const CDefaultPage page(CP_UTF8);
    EXPECT_EQ(std::u16string(CString("\xC3\xA9").View()), u"\u00E9");
}

// What the fuzz target is fed is read back here: sound bytes survive, others settle at once.
TEST(EncodingTest, CorpusSettlesAfterOneReading)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(UTILITY_FUZZ_DATA "/Encoding"))
    {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        for (const UINT page : {CP_UTF8, 1252U, 932U, 50220U})
        {
            const CString text = FromBytes(page, bytes);
            const CString again = FromBytes(page, ToBytes(page, text.View()));
            EXPECT_TRUE(FromBytes(page, ToBytes(page, again.View())) == again) << "page " << page;
            EXPECT_LE(text.GetLength(), static_cast<int>(bytes.size()));
        }
        ++files;
    }
    EXPECT_GE(files, 4);
}
