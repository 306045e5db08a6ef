#include "platform/base/MessageFormat.h"

#include <gtest/gtest.h>

#include <vector>

using namespace utility;

TEST(MessageFormatTest, PutsInsertsByTheirPlace)
{
    const std::vector<CFormatArgument> inserts = {u"one",    2, 3U, 1.5, u'x',
                                                  1LL << 40, 7, 8,  9,   u"ten"};
    const struct
    {
        const char16_t* m_Format;
        std::u16string m_Result;
    } rows[] = {
        {u"%1 and %2", u"one and 2"},
        {u"%2 %1 %2", u"2 one 2"},
        {u"%3 %4 %5 %6", u"3 1.5 x 1099511627776"},
        {u"%10%1", u"tenone"},
        {u"%2!02d!:%3!3u!", u"02:  3"},
        {u"%1!-5s!|", u"one  |"},
        {u"%7!*d!", u"      8"},
        {u"%1!", u"one!"},
        {u"%1!!", u"one"},
        {u"100%% %2", u"100% 2"},
        {u"a%nb\nc", u"a\r\nb\nc"},
        {u"a%0b", u"a"},
        {u"%. %! %x", u". ! x"},
        {u"50%", u"50%"},
        {u"", u""},
        {nullptr, u""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Format ? testing::PrintToString(std::u16string(row.m_Format)) : "null");
        EXPECT_EQ(std::u16string(FormatMessageText(row.m_Format, inserts).View()), row.m_Result);
    }
}

TEST(MessageFormatTest, InsertsAreNoTemplates)
{
    CString text;
    text.FormatMessage(u"%1, %2", u"%2", CString(u"50%% %n"));
    EXPECT_EQ(std::u16string(text.View()), u"%2, 50%% %n");
}

TEST(MessageFormatTest, MissingInsertIsEmpty)
{
    EXPECT_DEBUG_DEATH(EXPECT_EQ(FormatMessageText(u"<%1>", {}), u"<>"), "missing");
}
