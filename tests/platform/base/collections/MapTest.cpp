#include "platform/base/collections/Map.h"

#include "platform/base/collections/MapStringToPtr.h"
#include "platform/base/collections/MapStringToString.h"
#include "platform/base/collections/TypedPtrMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::ElementsAre;

namespace
{

using CNumberMap = CMap<int, int, int, int>;

std::vector<int> Keys(const CNumberMap& map)
{
    std::vector<int> keys;
    for (POSITION position = map.GetStartPosition(); position;)
    {
        int key = 0;
        int value = 0;
        map.GetNextAssoc(position, key, value);
        keys.push_back(key);
    }
    return keys;
}

} // namespace

TEST(MapTest, AbsentKeysKeepThePresetAndIndexingMakesThem)
{
    CMapStringToString map;
    CString value = u"preset";

    EXPECT_FALSE(map.Lookup(u"Key", value));
    EXPECT_EQ(value, u"preset");
    map.SetAt(u"Key", u"1");
    map[u"key"] = u"2"; // case counts
    EXPECT_TRUE(map.Lookup(u"Key", value));
    EXPECT_EQ(value, u"1");
    EXPECT_EQ(map[u"new"], u"");
    EXPECT_EQ(map.GetCount(), 3);
}

TEST(MapTest, WalkFollowsTheOrderOfFirstSetting)
{
    CNumberMap map;
    for (const int key : {30, 10, 20, 10})
        map.SetAt(key, key);
    EXPECT_THAT(Keys(map), ElementsAre(30, 10, 20));

    EXPECT_TRUE(map.RemoveKey(30));
    EXPECT_FALSE(map.RemoveKey(30));
    map.SetAt(30, 0);
    EXPECT_THAT(Keys(map), ElementsAre(10, 20, 30));
}

TEST(MapTest, CurrentKeyMayBeRemovedWhileWalking)
{
    CNumberMap map;
    map.InitHashTable(17);
    for (int key = 0; key < 1000; ++key)
        map.SetAt(key, key);

    int met = 0;
    for (POSITION position = map.GetStartPosition(); position; ++met)
    {
        int key = 0;
        int value = 0;
        map.GetNextAssoc(position, key, value);
        if (key % 3 != 0)
            map.RemoveKey(key);
    }

    EXPECT_EQ(met, 1000);
    EXPECT_EQ(map.GetCount(), 334);
}

TEST(MapTest, CopiesAreDeepAndKeepTheOrder)
{
    CNumberMap map;
    for (const int key : {3, 1, 2})
        map.SetAt(key, key);

    CNumberMap copy = map;
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    EXPECT_THAT(Keys(copy), ElementsAre(3, 1, 2));

    const CNumberMap moved = std::move(copy);
    EXPECT_THAT(Keys(moved), ElementsAre(3, 1, 2));
    EXPECT_THAT(Keys(copy), ElementsAre());
}

TEST(MapTest, TypedFaceGivesThePointersBackWithTheirType)
{
    int number = 5;
    CTypedPtrMap<CMapStringToPtr, CString, int*> map;
    map.SetAt(u"five", &number);

    int* found = nullptr;
    ASSERT_TRUE(map.Lookup(u"five", found));
    EXPECT_EQ(found, &number);
    EXPECT_EQ(map[u"six"], nullptr);
    EXPECT_EQ(map.GetCount(), 1);
}

} // namespace utility
