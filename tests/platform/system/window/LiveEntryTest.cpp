#include "platform/system/window/LiveEntry.h"

#include "platform/system/window/WindowOrder.h"

#include "support/FormatPage.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr char ENTRY[] = "utility-windows 1\n"
                         "process 4711 8812345\n"
                         "instance 2\n"
                         "application Board 100%25\n"
                         "window 1\n"
                         "class Frame\n"
                         "title Board:PCB - two%0Alines\n"
                         "window 7\n"
                         "class \n"
                         "title \n";

CLiveEntry MakeEntry()
{
    return {{4711, 8812345},
            2,
            u"Board 100%",
            {{1, u"Frame", u"Board:PCB - two\nlines"}, {7, u"", u""}}};
}

TEST(LiveEntryTest, WritesAndReadsEveryLine)
{
    EXPECT_EQ(FormatLiveEntry(MakeEntry()), ENTRY);
    CLiveEntry entry;
    ASSERT_TRUE(ParseLiveEntry(ENTRY, entry));
    EXPECT_EQ(entry, MakeEntry());
}

TEST(LiveEntryTest, ThePageShowsARealEntry)
{
    const CLiveEntry entry = {
        {4711, 8812345}, 2, u"Board", {{1, u"Frame", u"Board:PCB - amplifier.pcb"}}};
    EXPECT_EQ(FormatLiveEntry(entry), ReadByteListing("live-windows.md"));
}

TEST(LiveEntryTest, TakesOnlyWhatIsWholeAndWithinItsLimits)
{
    const std::string begin = "utility-windows 1\nprocess 4711 5\n";
    std::string tooMany = begin;
    for (std::size_t i = 0; i <= LIVE_WINDOW_LIMIT; ++i)
        tooMany += "window 1\n";
    const struct
    {
        const char* m_Name;
        std::string m_Text;
        bool m_IsEntry;
    } rows[] = {
        {"no window", begin, true},
        {"a line of a later version", begin + "colour red\n", true},
        {"last line without its end", begin + "window 1", true},
        {"a title of digits that are none", begin + "window 1\ntitle 5%zz%1", true},
        {"nothing", "", false},
        {"another version", "utility-windows 2\nprocess 4711 5\n", false},
        {"no process", "utility-windows 1\ninstance 1\n", false},
        {"process 0", "utility-windows 1\nprocess 0 5\n", false},
        {"a process that is no number", "utility-windows 1\nprocess 47x 5\n", false},
        {"a process above 32 bits", "utility-windows 1\nprocess 4294967296 5\n", false},
        {"more on the line", "utility-windows 1\nprocess 4711 5 6\n", false},
        {"window 0", begin + "window 0\n", false},
        {"a title of no window", begin + "title x\n", false},
        {"too many windows", tooMany, false},
        {"too long", begin + std::string(LIVE_ENTRY_LIMIT, 'x'), false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CLiveEntry entry = MakeEntry();
        EXPECT_EQ(ParseLiveEntry(row.m_Text, entry), row.m_IsEntry);
        EXPECT_NE(entry == MakeEntry(), row.m_IsEntry) << "a preset is kept on failure";
    }
}

TEST(LiveEntryTest, TheLargestEntryFits)
{
    CLiveEntry entry = MakeEntry();
    const CString longest(u'\u20AC', LIVE_TITLE_LIMIT); // three bytes a unit
    entry.m_Application = longest;
    entry.m_Windows.assign(LIVE_WINDOW_LIMIT, {4'000'000'000U, longest, longest});
    CLiveEntry read;
    ASSERT_TRUE(ParseLiveEntry(FormatLiveEntry(entry), read));
    EXPECT_EQ(read, entry);

    entry.m_Windows.resize(LIVE_WINDOW_LIMIT + 1);
    entry.m_Windows[0].m_Title += u"cut";
    ASSERT_TRUE(ParseLiveEntry(FormatLiveEntry(entry), read));
    EXPECT_EQ(read.m_Windows.size(), LIVE_WINDOW_LIMIT);
    EXPECT_EQ(read.m_Windows[0].m_Title, longest);
}

TEST(WindowOrderTest, EveryKindTravels)
{
    const CString longest(u'\u20AC', ORDER_NAME_LIMIT);
    const struct
    {
        CWindowOrder m_Order;
        std::string m_Text;
    } rows[] = {
        {{EWindowOrder::Top, 3}, "utility-order 1 top 3"},
        {{EWindowOrder::Maximise, 3}, "utility-order 1 maximise 3"},
        {{EWindowOrder::Close, 4'000'000'000U}, "utility-order 1 close 4000000000"},
        {{EWindowOrder::Move, 3, {-5, 0, 640, 480}}, "utility-order 1 move 3 -5 0 640 480"},
        {{EWindowOrder::Message, 3, {}, ~WPARAM{0}, -2, u"Two words"},
         "utility-order 1 message 3 18446744073709551615 -2 Two words"},
        {{EWindowOrder::Event, 0, {}, 1, 2, u"a\n%"}, "utility-order 1 event 0 1 2 a%0A%25"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Text);
        EXPECT_EQ(FormatWindowOrder(row.m_Order), row.m_Text);
        CWindowOrder order;
        ASSERT_TRUE(ParseWindowOrder(row.m_Text, order));
        EXPECT_EQ(order, row.m_Order);
    }
    CWindowOrder named = {EWindowOrder::Message, 1, {}, 0, 0, longest};
    CWindowOrder read;
    ASSERT_TRUE(ParseWindowOrder(FormatWindowOrder(named), read));
    EXPECT_EQ(read, named);
}

TEST(WindowOrderTest, WhatCannotTravelIsNoOrder)
{
    for (const CString& name : {CString(), CString(u'x', ORDER_NAME_LIMIT + 1)})
        EXPECT_EQ(FormatWindowOrder({EWindowOrder::Event, 0, {}, 0, 0, name}), "");

    const CWindowOrder preset = {EWindowOrder::Move, 9, {1, 2, 3, 4}, 5, 6, u"kept"};
    for (const std::string text :
         {"", "utility-order", "utility-order 1", "utility-order 2 top 3", "utility-order 1 top",
          "utility-order 1 jump 3", "utility-order 1 top 3 4", "utility-order 1 top -3",
          "utility-order 1  top 3", "utility-order 1 move 3 0 0 640",
          "utility-order 1 move 3 0 0 640 x", "utility-order 1 message 3 1 2",
          "utility-order 1 message 3 1 2 ", "utility-order 1 message 3 1 9223372036854775808 x",
          "utility-order 1 event 0 1 x y"})
    {
        SCOPED_TRACE(text);
        CWindowOrder order = preset;
        EXPECT_FALSE(ParseWindowOrder(text, order));
        EXPECT_EQ(order, preset);
    }
    CWindowOrder order;
    EXPECT_FALSE(
        ParseWindowOrder("utility-order 1 event 0 1 2 " + std::string(ORDER_LIMIT, 'x'), order));
}

} // namespace
} // namespace utility
