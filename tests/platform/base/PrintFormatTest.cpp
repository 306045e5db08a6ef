#include "platform/base/PrintFormat.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <vector>

using namespace utility;

namespace
{

struct CPrintRow
{
    const char16_t* m_Format;
    std::vector<CFormatArgument> m_Arguments;
    std::u16string m_Result;
};

void ExpectRows(const std::vector<CPrintRow>& rows)
{
    for (const CPrintRow& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Format)));
        EXPECT_EQ(std::u16string(PrintFormat(row.m_Format, row.m_Arguments).View()), row.m_Result);
    }
}

} // namespace

TEST(PrintFormatTest, WordsIntegersAtTheirWidth)
{
    ExpectRows({
        {u"%d", {-5}, u"-5"},
        {u"%i", {5}, u"5"},
        {u"%u", {-1}, u"4294967295"},
        {u"%ld", {0x1FFFFFFFFL}, u"-1"},
        {u"%lu", {0x1FFFFFFFFL}, u"4294967295"},
        {u"%hd", {0x1FFFF}, u"-1"},
        {u"%hu", {70000}, u"4464"},
        {u"%I64d", {std::numeric_limits<long long>::min()}, u"-9223372036854775808"},
        {u"%lld", {-1}, u"-1"},
        {u"%I64u", {-1}, u"18446744073709551615"},
        {u"%x", {255U}, u"ff"},
        {u"%02X", {10}, u"0A"},
        {u"%08x", {0xBEEFU}, u"0000beef"},
        {u"%#x", {255}, u"0xff"},
        {u"%#x", {0}, u"0"},
        {u"%#o", {8}, u"010"},
        {u"%d", {u'A'}, u"65"},
        {u"%d", {true}, u"1"},
    });
}

TEST(PrintFormatTest, KeepsFlagsWidthAndPrecision)
{
    ExpectRows({
        {u"[%6d]", {-42}, u"[   -42]"},
        {u"[%-6d]", {-42}, u"[-42   ]"},
        {u"[%06d]", {-42}, u"[-00042]"},
        {u"[%-06d]", {-42}, u"[-42   ]"},
        {u"[%+d]", {42}, u"[+42]"},
        {u"[% d]", {42}, u"[ 42]"},
        {u"[%.4d]", {42}, u"[0042]"},
        {u"[%08.4d]", {-42}, u"[   -0042]"},
        {u"[%.0d]", {0}, u"[]"},
        {u"[%*d]", {5, 42}, u"[   42]"},
        {u"[%*d]", {-5, 42}, u"[42   ]"},
        {u"[%0*d]", {5, 42}, u"[00042]"},
        {u"[%.*f]", {2, 1.0}, u"[1.00]"},
        {u"[%.*f]", {-1, 1.0}, u"[1.000000]"},
        {u"[%-8s]", {u"ab"}, u"[ab      ]"},
        {u"[%8s]", {u"ab"}, u"[      ab]"},
        {u"[%.2s]", {u"abc"}, u"[ab]"},
        {u"[%3c]", {u'x'}, u"[  x]"},
        {u"[%c]", {65}, u"[A]"},
        {u"[%s]", {static_cast<const char16_t*>(nullptr)}, u"[]"},
        {u"[%p]", {reinterpret_cast<const void*>(0xABC)}, u"[0000000000000ABC]"},
    });
}

TEST(PrintFormatTest, WordsRealNumbersExactly)
{
    const double infinity = std::numeric_limits<double>::infinity();
    ExpectRows({
        {u"%f", {1.5}, u"1.500000"},
        {u"%.0f", {0.5}, u"0"}, // ties to even
        {u"%.0f", {1.5}, u"2"},
        {u"%3.0f", {2.5}, u"  2"},
        {u"%.2f", {1.005}, u"1.00"}, // the nearest double lies below
        {u"%.1f", {0.25}, u"0.2"},
        {u"%.20f", {0.1}, u"0.10000000000000000555"},
        {u"%g", {100000.0}, u"100000"},
        {u"%g", {1000000.0}, u"1e+06"},
        {u"%g", {0.0001}, u"0.0001"},
        {u"%G", {0.00001}, u"1E-05"},
        {u"%.12g", {0.1 + 0.2}, u"0.3"},
        {u"%.12g", {1e100}, u"1e+100"},
        {u"%.12g", {123456789012.5}, u"123456789012"},
        {u"%.0g", {250.0}, u"2e+02"},
        {u"%#g", {1.5}, u"1.50000"},
        {u"%#.3g", {1e10}, u"1.00e+10"},
        {u"%#.0f", {3.0}, u"3."},
        {u"%e", {12345.678}, u"1.234568e+04"},
        {u"%.2E", {0.0}, u"0.00E+00"},
        {u"%g", {-0.0}, u"-0"},
        {u"%08.2f", {-1.5}, u"-0001.50"},
        {u"%+.1f", {1.25}, u"+1.2"},
        {u"%06f", {infinity}, u"   inf"},
        {u"%G", {-infinity}, u"-INF"},
    });
}

TEST(PrintFormatTest, LargestNumberAtLargestPrecisionIsWhole)
{
    const CFormatArgument largest[] = {std::numeric_limits<double>::max()};
    char peer[700];
    const int length = std::snprintf(peer, sizeof(peer), "%.300f", -largest[0].GetReal());
    const CFormatArgument negative[] = {-largest[0].GetReal()};

    const CString text = PrintFormat(u"%.300f", negative);

    EXPECT_EQ(std::u16string(text.View()), std::u16string(peer, peer + length));
}

TEST(PrintFormatTest, WhatIsNoFormStandsForItself)
{
    ExpectRows({
        {u"100%%", {}, u"100%"},
        {u"100%", {}, u"100%"},
        {u"%y %5", {}, u"%y %5"},
        {u"%-5", {}, u"%-5"},
    });
}

TEST(PrintFormatTest, NullIsTheEmptyFormat)
{
    EXPECT_TRUE(PrintFormat(nullptr, {}).IsEmpty());
}

TEST(PrintFormatTest, HugeWidthIsCut)
{
    const CFormatArgument one[] = {1};
    EXPECT_EQ(PrintFormat(u"%99999999999999999999d", one).GetLength(), 65535);
}

TEST(PrintFormatTest, MissingOrWrongInsertIsEmptyAndNothingIsReadWild)
{
    const CFormatArgument number[] = {7};
    EXPECT_DEBUG_DEATH(EXPECT_EQ(PrintFormat(u"<%d%d>", number), u"<7>"), "missing");
    EXPECT_DEBUG_DEATH(EXPECT_EQ(PrintFormat(u"<%s>", number), u"<>"), "wrong kind");
    EXPECT_DEBUG_DEATH(EXPECT_EQ(PrintFormat(u"<%f>", number), u"<>"), "wrong kind");
}
