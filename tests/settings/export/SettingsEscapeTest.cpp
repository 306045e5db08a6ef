#include "settings/export/SettingsEscape.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <random>

namespace utility
{

namespace
{

TEST(SettingsEscapeTest, NamesBecomeNamesOfElements)
{
    struct
    {
        std::u16string_view m_Name;
        std::u16string_view m_Written;
    } const rows[] = {
        {u"Grid", u"Grid"},
        {u"a-b.c_1", u"a-b.c_1"},
        {u"1st", u"_x0031_st"},
        {u"-a", u"_x002D_a"},
        {u"two words", u"two_x0020_words"},
        {u"[x]", u"_x005B_x_x005D_"},
        {u"a:b\\c", u"a_x003A_b_x005C_c"},
        {u"", u"_"},
        {u"_", u"_x005F_"},
        {u"__", u"__"},
        {u"_x0041_", u"_x005F_x0041_"},
        {u"_x0041", u"_x005F_x0041"},
        {u"_x0041:", u"_x005F_x0041_x003A_"},
        {u"_x004", u"_x004"},
        {u"_x00g1_", u"_x00g1_"},
        {u"\u00C4rger \u03A9", u"\u00C4rger_x0020_\u03A9"},
        {u"\u00D7\u0378", u"_x00D7__x0378_"},
        {u"\U0001F600", u"_xD83D__xDE00_"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Name)));
        EXPECT_EQ(CString(std::u16string_view(EscapeSettingsName(row.m_Name))),
                  CString(row.m_Written));
        EXPECT_EQ(UnescapeSettingsName(row.m_Written), CString(row.m_Name));
    }
}

TEST(SettingsEscapeTest, TextsKeepWhatAReaderWouldNotSee)
{
    struct
    {
        std::u16string_view m_Text;
        std::u16string_view m_Written;
    } const rows[] = {
        {u"", u""},
        {u"a b", u"a b"},
        {u" a b ", u"_x0020_a b_x0020_"},
        {u" ", u"_x0020_"},
        {u"a\r\n\tb", u"a_x000D__x000A__x0009_b"},
        {u"_", u"_"},
        {u"_x0041_", u"_x005F_x0041_"},
        {u"_x000A\x01", u"_x005F_x000A_x0001_"},
        {u"1 < 2 & \u03A9", u"1 < 2 & \u03A9"},
        {u"\U0001F600", u"\U0001F600"},
        {std::u16string_view(u"a\xD800", 2), u"a_xD800_"},
        {std::u16string_view(u"\xDC00\xD800", 2), u"_xDC00__xD800_"},
        {u"\xFEFF\xFFFE\xFFFF\x85", u"_xFEFF__xFFFE__xFFFF__x0085_"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        EXPECT_EQ(CString(std::u16string_view(EscapeSettingsText(row.m_Text))),
                  CString(row.m_Written));
        EXPECT_EQ(UnescapeSettingsText(row.m_Written), CString(row.m_Text));
    }
}

TEST(SettingsEscapeTest, WhatIsNoEscapeStandsForItself)
{
    EXPECT_EQ(UnescapeSettingsText(u"_x41_ _xtra_ _x004"), CString(u"_x41_ _xtra_ _x004"));
    EXPECT_EQ(UnescapeSettingsText(u"_x00e9_"), CString(u"\u00E9")) << "small digits are taken";
}

TEST(SettingsEscapeTest, EveryTextOfTheseUnitsComesBack)
{
    constexpr std::u16string_view UNITS = u"_x00aF1: \n\xD83D\xDE00";
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round)
    {
        std::u16string text;
        for (unsigned length = random() % 16; length > 0; --length)
            text += UNITS[random() % UNITS.size()];
        const CString plain{std::u16string_view(text)};
        EXPECT_EQ(UnescapeSettingsName(EscapeSettingsName(text)), plain);
        EXPECT_EQ(UnescapeSettingsText(EscapeSettingsText(text)), plain);
    }
}

} // namespace

} // namespace utility
