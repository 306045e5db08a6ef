#include "text/names/NameIncrement.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <random>

namespace utility
{
namespace
{

TEST(NameIncrementTest, CountsNamesOnByTheirNumber)
{
    const struct
    {
        const char16_t* m_Name;
        const char16_t* m_Next;
        const char16_t* m_NextStyle;
    } rows[] = {
        {u"R9", u"R10", u"R10"},
        {u"R09", u"R10", u"R10"},
        {u"A1B", u"A2B", u"A1B1"},
        {u"R", u"R1", u"R1"},
        {u"", u"1", u"1"},
        {u"5", u"51", u"51"},
        {u"12", u"13", u"13"},
        {u"R2147483647", u"R21474836471", u"R21474836471"},
        {u"R99999999999", u"R999999999991", u"R999999999991"},
        {u"R2147483646", u"R2147483647", u"R2147483647"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Name)));
        EXPECT_EQ(Increment(row.m_Name), CString(row.m_Next));
        EXPECT_EQ(IncrementStyleName(row.m_Name), CString(row.m_NextStyle));
    }
}

TEST(NameIncrementTest, CountsNumbersUpAndDownInTheirLastPlace)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Up;
        const char16_t* m_Down;
    } rows[] = {
        {u"9.9", u"10.0", u"9.8"},
        {u"-1", u"0", u"-2"},
        {u"0", u"1", u"-1"},
        {u"-0", u"1", u"-1"},
        {u"1.2 rev.", u"1.3 rev.", u"1.1 rev."},
        {u"A.", u"A.1", u"A-.1"},
        {u"A", u"A1", u"A-1"},
        {u".9", u"0.0", u".8"},
        {u"1.0", u"1.1", u"0.9"},
        {u"0.0", u"0.1", u"-0.1"},
        {u"-9", u"-8", u"-10"},
        {u"-0.1", u"0.0", u"-0.2"},
        {u"x99", u"x100", u"x98"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CString up = row.m_Text;
        CString down = row.m_Text;
        IncrementNumber(up, true);
        IncrementNumber(down, false);
        EXPECT_EQ(up, CString(row.m_Up));
        EXPECT_EQ(down, CString(row.m_Down));
    }
}

TEST(NameIncrementTest, UpAndDownAgainIsTheSameWhereNoDigitWasPutInFront)
{
    std::mt19937 random(5);
    int kept = 0;
    for (int round = 0; round < 5000; ++round)
    {
        CString text;
        text.Format(u"%s%d.%02d%s", random() % 2 ? u"-" : u"N", random() % 30, random() % 100,
                    random() % 2 ? u"" : u"x");
        CString changed = text;
        IncrementNumber(changed, true);
        if (changed.GetLength() != text.GetLength())
            continue;
        ++kept;
        IncrementNumber(changed, false);
        EXPECT_EQ(changed, text);
    }
    EXPECT_GT(kept, 4000);
}

TEST(NameIncrementTest, CountsInLetters)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Next;
    } rows[] = {
        {u"Az", u"Ba"},     {u"Zz", u"AAa"}, {u"zz", u"aaa"}, {u"", u"A"},    {u"--", u"--A"},
        {u"A1-.", u"A2-."}, {u"9z", u":a"},  {u"A9", u"A10"}, {u"a)", u"b)"},
    };
    for (const auto& row : rows)
    {
        CString text = row.m_Text;
        IncrementString(text);
        EXPECT_EQ(text, CString(row.m_Next));
    }
}

TEST(NameIncrementTest, CountsFilesOn)
{
    const struct
    {
        const char16_t* m_Path;
        const char16_t* m_NextName;
        const char16_t* m_NextExtension;
    } rows[] = {
        {u"C:\\d\\board.pcb", u"C:\\d\\board1.pcb", u"C:\\d\\board.pcb1"},
        {u"x09.b09", u"x10.b09", u"x09.b10"},
        {u"x99", u"x100", u"x99"},
        {u"x20240917123459.log", u"x20240917123460.log", u"x20240917123459.log1"},
        {u"C:\\d\\", u"C:\\d\\", u"C:\\d\\"},
    };
    for (const auto& row : rows)
    {
        CString name = row.m_Path;
        CString extension = row.m_Path;
        NextFileName(name);
        NextFileExtn(extension);
        EXPECT_EQ(name, CString(row.m_NextName));
        EXPECT_EQ(extension, CString(row.m_NextExtension));
    }
}

} // namespace
} // namespace utility
