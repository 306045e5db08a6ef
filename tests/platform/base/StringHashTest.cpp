#include "platform/base/StringHash.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <unordered_map>

using namespace utility;

TEST(StringHashTest, CaseBlindKeysMeetAndAreFoundByViews)
{
    std::unordered_map<CString, int, CNoCaseHash, CNoCaseEqual> blind;
    std::unordered_map<CString, int, CStringHash, CStringEqual> exact;
    std::map<CString, int, CNoCaseLess> sorted;
    for (const char16_t* name : {u"Value", u"VALUE", u"\u00C4rger", u"\u00E4RGER", u"_x"})
    {
        ++blind[name];
        ++exact[name];
        ++sorted[name];
    }

    EXPECT_EQ(blind.size(), 3U);
    EXPECT_EQ(exact.size(), 5U);
    EXPECT_EQ(sorted.begin()->first, CString(u"_x")); // before the lower-cased letters
    EXPECT_EQ(blind.find(std::u16string_view(u"vaLue"))->second, 2);
    EXPECT_EQ(exact.find(std::u16string_view(u"value")), exact.end());
    EXPECT_EQ(sorted.find(std::u16string_view(u"VALUe"))->second, 2);
    EXPECT_EQ(NoCaseKey(u"\u00C4B"), CString(u"\u00E4b"));
}

TEST(StringHashTest, SpreadsNamesThatDifferInOneUnit)
{
    std::set<std::size_t> buckets;
    for (int i = 0; i < 1000; ++i)
    {
        CString name;
        name.Format(u"R%d", i);
        buckets.insert(CNoCaseHash()(name) % 1024);
    }
    EXPECT_GT(buckets.size(), 550U); // 637 expected of an even spread
}
