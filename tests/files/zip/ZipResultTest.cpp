#include "files/zip/ZipFixture.h"

namespace utility
{

namespace
{

constexpr const char16_t* UNKNOWN = u"unknown zip result code";

struct CWords
{
    ZRESULT m_Code;
    const char16_t* m_Read;
    const char16_t* m_Made = nullptr; // null: the same
};

constexpr CWords WORDS[] = {
    {0, u"Success"},
    {0x100, u"Culdn't duplicate handle", u"Couldn't duplicate handle"},
    {0x200, u"Couldn't create/open file"},
    {0x300, u"Failed to allocate memory"},
    {0x400, u"Error writing to file"},
    {0x500, u"File not found in the zipfile"},
    {0x600, u"Still more data to unzip"},
    {0x700, u"Zipfile is corrupt or not a zipfile"},
    {0x800, u"Error reading file"},
    {0x1000, u"Correct password required", UNKNOWN},
    {0x10000, u"Caller: faulty arguments"},
    {0x20000, u"Caller: can only get memory of a memory zipfile"},
    {0x30000, u"Caller: not enough space allocated for memory zipfile"},
    {0x40000, u"Caller: there was a previous error"},
    {0x50000, u"Caller: additions to the zip have already been ended"},
    {0x60000, u"Zip-bug: the anticipated size turned out wrong"},
    {0x70000, u"Caller: the file had already been partially unzipped"},
    {0x80000, u"Caller: mixing creation and opening of zip"},
    {0x1000000, u"Zip-bug: internal initialisation not completed"},
    {0x2000000, u"Zip-bug: trying to seek the unseekable"},
    {0x4000000, u"Zip-bug: tried to change mind, but not allowed"},
    {0x5000000, u"Zip-bug: an internal error during flation"},
    {0x3000000, UNKNOWN},
    {2, UNKNOWN},
};

} // namespace

TEST(ZipResultTest, EachCodeHasItsWordsOnBothSides)
{
    for (const CWords& each : WORDS)
    {
        SCOPED_TRACE(each.m_Code);
        const CString read(each.m_Read);
        const CString made(each.m_Made ? each.m_Made : each.m_Read);
        char16_t text[100] = {};
        EXPECT_EQ(FormatZipMessageU(each.m_Code, text, 100), unsigned(read.GetLength()));
        EXPECT_EQ(CString(text), read);
        EXPECT_EQ(FormatZipMessageZ(each.m_Code, text, 100), unsigned(made.GetLength()));
        EXPECT_EQ(CString(text), made);
    }
}

TEST(ZipResultTest, WordsAreCutToTheBufferAndEndedByZero)
{
    char16_t text[6] = u"?????";

    EXPECT_EQ(FormatZipMessageU(0, text, 5), 7U);
    EXPECT_EQ(CString(text), u"Succ");
    EXPECT_EQ(text[5], u'\0');
    EXPECT_EQ(FormatZipMessageZ(0, text, 1), 7U);
    EXPECT_EQ(CString(text), u"");
    text[0] = u'?';
    EXPECT_EQ(FormatZipMessageZ(0, text, 0), 7U);
    EXPECT_EQ(FormatZipMessageZ(0, nullptr, 5), 7U);
    EXPECT_EQ(text[0], u'?');
}

TEST(ZipResultTest, EachSideKeepsItsOwnLastResult)
{
    EXPECT_EQ(OpenZip(u"", nullptr), nullptr);
    EXPECT_EQ(CreateZip(nullptr, 0, nullptr), nullptr);

    EXPECT_EQ(LastZipTextU(), u"Caller: faulty arguments");
    EXPECT_EQ(LastZipTextZ(), u"Caller: not enough space allocated for memory zipfile");

    EXPECT_EQ(CloseZipZ(nullptr), ZIP_ARGUMENTS);
    EXPECT_EQ(LastZipTextZ(), u"Caller: faulty arguments");
}

} // namespace utility
