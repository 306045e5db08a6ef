#include "files/encoded/StdioFileEx.h"

#include "files/encoded/AnsiText.h"
#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace utility;
using namespace std::string_literals;

namespace
{

constexpr UINT CREATE = CFile::modeCreate | CFile::modeWrite;

/// Another default page for a scope.
class CDefaultPage
{
public:
    explicit CDefaultPage(UINT page) { SetACP(page); }
    ~CDefaultPage() { SetACP(0); }
    CDefaultPage(const CDefaultPage&) = delete;
    CDefaultPage& operator=(const CDefaultPage&) = delete;
};

std::vector<CString> ReadLines(const CString& path, UINT flags = CFile::modeRead)
{
    std::vector<CString> lines;
    CStdioFileEx file(path, flags);
    for (CString line; file.ReadString(line);)
        lines.push_back(line);
    return lines;
}

/// What a new file holds after these texts.
std::string Written(UINT flags, const std::vector<CString>& texts)
{
    const CTemporaryFolder folder;
    CStdioFileEx file(folder.PathOf(u"a"), CREATE | flags);
    for (const CString& text : texts)
        file.WriteString(text);
    file.Close();
    return folder.Read(u"a");
}

TEST(StdioFileExTest, OneTextInFourEncodingsReadsAlike)
{
    const CDefaultPage page(1252);
    const CString text = u"R1 = 4k7 \u00B1 5 %\r\n\r\nend";
    const std::string utf16 = [&]
    {
        std::string bytes = "\xFF\xFE";
        bytes.append(reinterpret_cast<const char*>(text.GetString()), text.View().size() * 2);
        return bytes;
    }();
    struct CCase
    {
        const char* Name;
        std::string Bytes;
        UINT Flags;
    };
    const CCase cases[] = {
        {"code page", "R1 = 4k7 \xB1 5 %\r\n\r\nend", 0},
        {"UTF-8 with mark", "\xEF\xBB\xBFR1 = 4k7 \xC2\xB1 5 %\r\n\r\nend", 0},
        {"UTF-8 asked for", "R1 = 4k7 \xC2\xB1 5 %\r\n\r\nend", CStdioFileEx::modeReadUTF8},
        {"UTF-16", utf16, 0},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        const CTemporaryFolder folder;
        EXPECT_EQ(ReadLines(folder.MakeFile(u"a", test.Bytes), test.Flags),
                  (std::vector<CString>{u"R1 = 4k7 \u00B1 5 %", u"", u"end"}));
    }
}

TEST(StdioFileExTest, LineEndsAndDamagedBytesRead)
{
    struct CCase
    {
        const char* Name;
        std::string Bytes;
        std::vector<CString> Lines;
    };
    const CCase cases[] = {
        {"empty", "", {}},
        {"mark alone", "\xFF\xFE", {}},
        {"half a mark", "\xFF", {u"\uFFFD"}},
        {"UTF-8 mark alone", "\xEF\xBB\xBF", {}},
        {"EF without the rest is text", "\xEFx", {u"\uFFFDx"}},
        {"one line", "a\n", {u"a"}},
        {"empty second line", "a\n\n", {u"a", u""}},
        {"only one CR is cut", "a\r\r\nb\r", {u"a\r", u"b"}},
        {"lone CR ends no line", "a\rb", {u"a\rb"}},
        {"odd last byte", "\xFF\xFE"s + "a\0b\0c"s, {u"ab"}},
        {"a unit that holds 0A", "\xFF\xFE"s + "\x0A\x01\n\0x\0"s, {u"\u010A", u"x"}},
        {"surrogate in UTF-8", "\xED\xA0\x80", {u"\uFFFD\uFFFD\uFFFD"}},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        const CTemporaryFolder folder;
        EXPECT_EQ(ReadLines(folder.MakeFile(u"a", test.Bytes)), test.Lines);
    }
}

TEST(StdioFileExTest, AskedForUnicodeStepsOverTheFirstUnit)
{
    const CTemporaryFolder folder;

    EXPECT_EQ(ReadLines(folder.MakeFile(u"a", "a\0b\0"s), CStdioFileEx::modeWriteUnicode),
              std::vector<CString>{u"b"});
}

TEST(StdioFileExTest, EachModeWritesItsBytes)
{
    const CDefaultPage page(1252);
    struct CCase
    {
        const char* Name;
        UINT Flags;
        std::vector<CString> Texts;
        std::string Bytes;
    };
    const CCase cases[] = {
        {"Unicode", CStdioFileEx::modeWriteUnicode, {u"a\nb"}, "\xFF\xFE"s + "a\0\r\0\n\0b\0"s},
        {"UTF-8", CStdioFileEx::modeWriteUtf8, {u"\u00E9\n", u"x"}, "\xEF\xBB\xBF\xC3\xA9\r\nx"},
        {"code page", 0, {u"\u00E9\u0416"}, "\xE9?"},
        {"code page as UTF-8", CStdioFileEx::modeMultiByteUtf8, {u"\u00E9"}, "\xC3\xA9"},
        {"UTF-8 page", CStdioFileEx::modeReadUTF8, {u"\u00E9"}, "\xC3\xA9"},
        {"ASCII", CStdioFileEx::modeAscii, {u"a\u00E9\U0001F50C"}, "aU+00E9U+D83DU+DD0C"},
        {"RTF", CStdioFileEx::modeRtf, {u"a\u00E9"}, "a\\u233?"},
        {"a pair stays one", 0, {u"a\r\nb"}, "a\r\nb"},
        {"CR gets its LF", 0, {u"a\rb\n\r"}, "a\r\nb\r\n\r\n"},
        {"ends within one call only", 0, {u"a\r", u"\nb"}, "a\r\n\r\nb"},
        {"mark with an empty text", CStdioFileEx::modeWriteUtf8, {u""}, "\xEF\xBB\xBF"},
        {"never written to", CStdioFileEx::modeWriteUtf8, {}, ""},
        {"text mode is ours", CFile::typeText, {u"a\n"}, "a\r\n"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        EXPECT_EQ(Written(test.Flags, test.Texts), test.Bytes);
    }
}

TEST(StdioFileExTest, AMarkIsWrittenOnceAndOnlyToANewFile)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", "old");
    CStdioFileEx old(path, CFile::modeReadWrite | CStdioFileEx::modeWriteUtf8);
    old.WriteString(u"new");
    old.Close();
    EXPECT_EQ(folder.Read(u"a"), "new");

    CStdioFileEx fresh(path, CREATE | CStdioFileEx::modeWriteUtf8);
    fresh.WriteBOM();
    fresh.WriteBOM();
    EXPECT_EQ(fresh.GetCharCount(), 3U);
    fresh.WriteString(u"x");
    fresh.Seek(0, CFile::begin);
    fresh.WriteString(u"yyy");
    fresh.Close();
    EXPECT_EQ(folder.Read(u"a"), "yyyx");
}

TEST(StdioFileExTest, WhatWasWrittenReadsBack)
{
    const std::vector<CString> lines = {u"", u"plain", u"\u00E9 \u0416 \u20AC \U0001F50C", u"a\tb",
                                        u"end"};
    for (const UINT flags : {CStdioFileEx::modeWriteUnicode, CStdioFileEx::modeWriteUtf8})
    {
        SCOPED_TRACE(flags);
        const CTemporaryFolder folder;
        const CString path = folder.PathOf(u"a");
        CStdioFileEx file(path, CREATE | flags);
        for (const CString& line : lines)
            file.WriteString(line + u"\n");
        file.Close();
        EXPECT_EQ(ReadLines(path), lines);
        EXPECT_EQ(CStdioFileEx::IsFileUnicode(path), flags == CStdioFileEx::modeWriteUnicode);
    }
}

TEST(StdioFileExTest, EscapesAreUndoneInRtfModeAlone)
{
    struct CCase
    {
        const char* Bytes;
        const char16_t* Line;
    };
    const CCase cases[] = {
        {"\\u233?", u"\u0233"}, // written decimal, read hexadecimal
        {"\\ue9x", u"\u00E9x"}, {"a\\u 0x41?b", u"aAb"}, {"\\uzz\\u0?", u"\\uzz\\u0?"},
        {"\\u", u"\\u"},        {"\\u-1?", u"\uFFFF"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Bytes);
        const CTemporaryFolder folder;
        const CString path = folder.MakeFile(u"a", test.Bytes);
        EXPECT_EQ(ReadLines(path, CStdioFileEx::modeRtf), std::vector<CString>{test.Line});
        EXPECT_EQ(ReadLines(path), std::vector<CString>{FromUtf8(test.Bytes)});
    }
}

TEST(StdioFileExTest, TheFirstRtfFileClosedTakesTheFormFromTheOther)
{
    const CTemporaryFolder folder;
    CStdioFileEx first(folder.PathOf(u"1"), CREATE | CStdioFileEx::modeRtf);
    CStdioFileEx second(folder.PathOf(u"2"), CREATE | CStdioFileEx::modeRtf);
    first.Close();
    EXPECT_EQ(first.GetAsciiCodePointLeadString(), u"U+");
    second.WriteString(u"\u00E9");
    second.Close();

    EXPECT_EQ(folder.Read(u"2"), "\\u00E9");
}

TEST(StdioFileExTest, ManyLinesCostFewWrites)
{
    const CTemporaryFolder folder;
    const CString path = folder.PathOf(u"a");
    CStdioFileEx file(path, CREATE | CStdioFileEx::modeWriteUtf8);
    const auto writeCalls = []
    {
        std::ifstream counts("/proc/self/io");
        std::string name;
        std::uint64_t value = 0;
        while (counts >> name >> value && name != "syscw:")
        {
        }
        return value;
    };
    const std::uint64_t before = writeCalls();

    for (int i = 0; i < 100000; ++i)
        file.WriteString(
            u"R1,4k7,0805,5%,\u00B1,Resistor of the general kind in a small package\n");
    file.Close();

    EXPECT_LT(writeCalls() - before, 1000U);
    EXPECT_EQ(ReadLines(path).size(), 100000U);
}

TEST(StdioFileExTest, LongLinesPassEveryBuffer)
{
    const CTemporaryFolder folder;
    for (const int length : {16383, 16384, 65535, 65536, 65537, 3000000})
    {
        for (const UINT flags : {CStdioFileEx::modeWriteUnicode, CStdioFileEx::modeWriteUtf8})
        {
            SCOPED_TRACE(testing::Message() << length << " units, flags " << flags);
            const CString line(u'\u00E9', length);
            CStdioFileEx file(folder.PathOf(u"a"), CREATE | flags);
            file.WriteString(line);
            file.WriteString(u"\n");
            file.WriteString(u"end");
            file.Close();
            EXPECT_TRUE(ReadLines(folder.PathOf(u"a")) == (std::vector<CString>{line, u"end"}));
        }
    }
}

TEST(StdioFileExTest, ALineOfAHundredMegabytesReadsWhole)
{
    constexpr int LENGTH = 100'000'000;
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", std::string(LENGTH, 'x') + "\r\nend");
    CStdioFileEx file(path, CFile::modeRead);
    CString line;

    ASSERT_TRUE(file.ReadString(line));
    EXPECT_TRUE(line == CString(u'x', LENGTH));
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, u"end");
}

TEST(StdioFileExTest, AShortBufferGetsTheLineInPieces)
{
    const CTemporaryFolder folder;
    CStdioFileEx file(folder.MakeFile(u"a", "abcde\r\n\r\nxy"), CFile::modeRead);
    char16_t buffer[4];
    std::vector<CString> pieces;
    while (file.ReadString(buffer, 4) != nullptr)
        pieces.push_back(buffer);

    EXPECT_EQ(pieces, (std::vector<CString>{u"abc", u"de", u"", u"xy"}));
}

TEST(StdioFileExTest, PlacesCountWhatIsHeldAndReadAhead)
{
    const CTemporaryFolder folder;
    CStdioFileEx file(folder.PathOf(u"a"), CFile::modeCreate | CFile::modeReadWrite);
    file.WriteString(u"one\ntwo\nthree\n");
    EXPECT_EQ(file.GetPosition(), 17U);
    file.Seek(0, CFile::begin);
    CString line;
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(file.GetPosition(), 5U);

    file.WriteString(u"TWO"); // lands where reading stood
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, u"");
    file.Close();

    EXPECT_EQ(folder.Read(u"a"), "one\r\nTWO\r\nthree\r\n");
}

TEST(StdioFileExTest, BytesAndTextsKeepTheirOrder)
{
    const CTemporaryFolder folder;
    CStdioFileEx file(folder.PathOf(u"a"), CREATE);
    file.WriteString(u"a");
    file.Write("\n", 1);
    file.WriteString(u"b");
    file.Close();

    EXPECT_EQ(folder.Read(u"a"), "a\nb");
}

TEST(StdioFileExTest, AnotherFileIsAddedInItsOwnEncoding)
{
    const CTemporaryFolder folder;
    const CString other = folder.MakeFile(u"other", "\xFF\xFE"s + "\xE9\0\n\0x\0"s);
    CStdioFileEx file(folder.PathOf(u"a"), CREATE | CStdioFileEx::modeReadUTF8);
    EXPECT_TRUE(file.AddFile(other));
    EXPECT_FALSE(file.AddFile(folder.PathOf(u"none")));
    file.Close();

    EXPECT_EQ(folder.Read(u"a"), "\xC3\xA9\r\nx\r\n");
}

TEST(StdioFileExTest, AFailedWriteIsMetByClose)
{
    CStdioFileEx file(u"\\dev\\full", CFile::modeWrite);
    file.WriteString(u"text");
    int cause = CFileException::none;
    try
    {
        file.Close();
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        cause = exception->m_cause;
    }

    EXPECT_EQ(cause, CFileException::diskFull);
    EXPECT_FALSE(file.IsOpen());
}

TEST(StdioFileExTest, ConversionsCutAtWholeCharacters)
{
    char bytes[6];
    char16_t units[3];
    std::unique_ptr<char[]> block;

    EXPECT_EQ(
        CStdioFileEx::GetMultiByteStringFromUnicodeString(u"a\u20AC\u20AC", bytes, 6, CP_UTF8), 4);
    EXPECT_STREQ(bytes, "a\xE2\x82\xAC");
    EXPECT_EQ(CStdioFileEx::GetAsciiStringFromUnicodeString(u"\u00E9", bytes, 6, u"U+"), 0);
    EXPECT_STREQ(bytes, "");
    EXPECT_EQ(
        CStdioFileEx::GetUnicodeStringFromMultiByteString("a\xF0\x9F\x94\x8C", units, 3, CP_UTF8),
        1);
    EXPECT_EQ(CStdioFileEx::GetRequiredAsciiLengthForUnicodeString(u"a\u00E9", u"U+"), 8);
    const char* converted =
        CStdioFileEx::GetNewMultiByteStringFromUnicodeString(u"longer", bytes, 6, block, CP_UTF8);
    EXPECT_EQ(converted, block.get());
    EXPECT_STREQ(converted, "longer");
    EXPECT_EQ(
        CStdioFileEx::GetNewMultiByteStringFromUnicodeString(u"short", bytes, 6, block, CP_UTF8),
        bytes);
}

TEST(StdioFileExTest, ModesHaveNames)
{
    EXPECT_EQ(CStdioFileEx::GetModeStringId(0x00200000), 10771U);
    EXPECT_EQ(CStdioFileEx::GetModeStringId(0x00400000), 10772U);
    EXPECT_EQ(CStdioFileEx::GetModeStringId(0x00800000), 10770U);
    EXPECT_EQ(CStdioFileEx::GetModeStringId(0x01000000), 10773U);
    EXPECT_EQ(CStdioFileEx::GetModeStringId(0x04000000), 10770U);
}

TEST(AnsiTextTest, TextsPassThroughTheDefaultPage)
{
    CString text = u"\u00E9";
    AnsiToUTF8(text);
    EXPECT_EQ(text, u"\u00E9");

    const CDefaultPage page(1252);
    AnsiToUTF8(text);
    EXPECT_EQ(text, u"\u00C3\u00A9");
    text = u"\u00E9\u0416";
    UTF8ToAnsi(text);
    EXPECT_EQ(text, u"\u00E9?");
}

} // namespace
