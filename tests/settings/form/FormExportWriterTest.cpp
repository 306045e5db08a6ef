#include "settings/form/FormExportWriter.h"

#include "platform/system/file/FileException.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace utility;

namespace
{

class FormExportWriterTest : public testing::Test
{
protected:
    // What the calls leave in the file.
    template <typename TCalls>
    std::string Written(TCalls calls)
    {
        CFormExportWriter writer;
        EXPECT_TRUE(writer.Open(m_Folder.PathOf(u"out.frm")));
        calls(writer);
        writer.Close();
        return m_Folder.Read(u"out.frm");
    }

    CTemporaryFolder m_Folder;
};

TEST_F(FormExportWriterTest, WritesATreeByteForByte)
{
    const std::string text = Written(
        [](CFormExportWriter& writer)
        {
            writer.OpenForm(u"Component", true);
            writer.Form(u"Name", CString(u"Res1"), true);
            writer.FormQuoted(u"Value", u"10k", true);
            writer.Form(u"At", CPoint(-3, 40), true);
            writer.Form(u"Box", CSize(7, 8), true);
            writer.Form(CPoint(1, 2), true);
            writer.FormBool(u"Fitted", true, true);
            writer.Form(u"Locked", true);
            writer.OpenForm(u"Pin", u"1 A", true, true);
            writer.Form(u"Net", CString(u"GND"), false);
            writer.Form(u"Net", CString(u"VCC"), false);
            writer.WriteLine();
            writer.CloseForm(true);
            writer.OpenForm(u"Pair", u"a", u"b", false, false);
            writer.CloseForm(false);
            writer.WriteLine();
            writer.FormQuotedKeyWord(u"Key Word", 5, true);
            writer.FormQuotedQuotedKeyWord(u"Plain", u"x", true);
            writer.OpenFormQuotedKeyWord(u"a(b", u"v", true, false);
        });

    EXPECT_EQ(text, "(Component\r\n"
                    "  (Name Res1)\r\n"
                    "  (Value \"10k\")\r\n"
                    "  (At -3 40)\r\n"
                    "  (Box 7 8)\r\n"
                    "  (pt 1 2)\r\n"
                    "  (Fitted 1)\r\n"
                    "  (Locked)\r\n"
                    "  (Pin \"1 A\"\r\n"
                    "    (Net GND)  (Net VCC) \r\n"
                    "  )\r\n"
                    "  (Pair a b)\r\n"
                    "  (\"Key Word\" 5)\r\n"
                    "  (Plain \"x\")\r\n"
                    "  (\"a(b\" v\r\n"
                    "  )\r\n"
                    ")\r\n");
}

// The example of docs/formats/form-text.md.
TEST_F(FormExportWriterTest, WritesTheExampleOfItsFormatPage)
{
    const BYTE bytes[] = {0x00, 0x7F, 0xFF};

    const std::string text = Written(
        [&](CFormExportWriter& writer)
        {
            writer.OpenForm(u"Component", true);
            writer.Form(u"Name", CString(u"Res1"), true);
            writer.FormQuoted(u"Value", u"10k\n1%", true);
            writer.Form(bytes, 3, true);
            writer.CloseForm(true);
        });

    EXPECT_EQ(
        text,
        "(Component\r\n  (Name Res1)\r\n  (Value \"10k\\n1%\")\r\n  (binary\r\n    (size 3)\r\n"
        "    (data\r\n      00 7F FF\r\n    )\r\n  )\r\n\r\n)\r\n");
}

TEST_F(FormExportWriterTest, FormatsNumbersAlikeInEveryLocale)
{
    const std::string text = Written(
        [](CFormExportWriter& writer)
        {
            writer.Form(u"i", -2147483647 - 1, true);
            writer.Form(u"u", 4294967295u, true);
            writer.Form(u"q", std::int64_t{-9223372036854775807} - 1, true);
            for (const double value :
                 {0.1, 1e15, 1e-5, 1e100, -0.0, 1.0 / 3, std::numeric_limits<double>::infinity()})
                writer.Form(u"d", value, true);
            writer.Form(u"n", -std::nan(""), true);
            writer.Form(u"f", 0.1f, true);
            writer.Form(u"c", u'Ω', true);
        });

    EXPECT_EQ(text, "(i -2147483648)\r\n(u 4294967295)\r\n(q -9223372036854775808)\r\n"
                    "(d 0.1)\r\n(d 1e+15)\r\n(d 1e-05)\r\n(d 1e+100)\r\n(d -0)\r\n(d "
                    "0.333333333333)\r\n(d inf)\r\n"
                    "(n -nan)\r\n(f 0.10000000149)\r\n(c \xCE\xA9)\r\n");
}

TEST_F(FormExportWriterTest, ProtectsWhatQuotesCannotHold)
{
    CFormExportWriter writer;
    CFormExportWriter plain;
    plain.SetNoEscapeChar();
    const struct
    {
        const char16_t* text;
        const char16_t* protectedText;
        const char16_t* withoutEscapes;
    } rows[] = {{u"C:\\temp", u"C:\\\\temp", u"C:\\temp"},
                {u"say \"no\"", u"say \\\"no\\\"", u"say \\\"no\\\""},
                {u"a\r\nb", u"a\\r\\nb", u"a\\r\\nb"},
                {u"(", u"\\(", u"\\("},
                {u")", u"\\)", u"\\)"},
                {u"()", u"()", u"()"},
                {u"tab\there", u"tab\there", u"tab\there"},
                {u"", u"", u""}};

    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        EXPECT_EQ(writer.ProtectQuotes(row.text), row.protectedText);
        EXPECT_EQ(plain.ProtectQuotes(row.text), row.withoutEscapes);
    }
}

TEST_F(FormExportWriterTest, BreaksBinaryBlocksEveryFortyBytes)
{
    const std::vector<BYTE> bytes(41, 0xAB);
    std::string line;
    for (int i = 0; i < 40; ++i)
        line += i ? " AB" : "AB";
    const auto block = [&](unsigned size)
    {
        return Written([&](CFormExportWriter& writer) { writer.Form(bytes.data(), size, true); });
    };
    const std::string head = "(binary\r\n  (size ";
    const std::string tail = "  )\r\n)\r\n\r\n";

    EXPECT_EQ(block(0), head + "0)\r\n  (data\r\n\r\n" + tail);
    EXPECT_EQ(block(1), head + "1)\r\n  (data\r\n    AB\r\n" + tail);
    EXPECT_EQ(block(40), head + "40)\r\n  (data\r\n    " + line + "\r\n\r\n" + tail);
    EXPECT_EQ(block(41), head + "41)\r\n  (data\r\n    " + line + "\r\n    AB\r\n" + tail);
}

TEST_F(FormExportWriterTest, BalancesAnAbandonedFileAndSurvivesStrayClosing)
{
    {
        CFormExportWriter writer;
        ASSERT_TRUE(writer.Open(m_Folder.PathOf(u"left.frm")));
        writer.OpenForm(u"a", true);
        writer.OpenForm(u"b", true);
    }
    const std::string stray = Written(
        [](CFormExportWriter& writer)
        {
            writer.CloseForm(true);
            writer.OpenForm(u"a", true);
            writer.CloseForms();
        });

    EXPECT_EQ(m_Folder.Read(u"left.frm"), "(a\r\n  (b\r\n  )\r\n)\r\n");
    EXPECT_EQ(stray, ")\r\n(a\r\n");
}

TEST_F(FormExportWriterTest, SumsWhatPassesWithoutLineEndsAndTakesNoText)
{
    std::int32_t sum = 0;
    const std::string text = Written(
        [&](CFormExportWriter& writer)
        {
            writer.StartChecksum();
            writer.WriteString(nullptr);
            writer.Form(u"a", 1, true);
            writer.StopChecksum();
            writer.Form(u"b", true);
            sum = writer.GetChecksum();
        });

    EXPECT_EQ(text, "(a 1)\r\n(b)\r\n");
    EXPECT_EQ(sum, '(' + 'a' + ' ' + '1' + ')');
}

TEST_F(FormExportWriterTest, EmptiesTheFileAtOnceAndTellsWhatItCannotOpen)
{
    const CString path = m_Folder.MakeFile(u"old.frm", "(old)\r\n");
    {
        CFormExportWriter writer;
        ASSERT_TRUE(writer.Open(path));
    }
    CFormExportWriter nowhere;

    EXPECT_EQ(m_Folder.Read(u"old.frm"), "");
    EXPECT_FALSE(nowhere.Open(m_Folder.PathOf(u"absent\\new.frm")));
}

} // namespace
