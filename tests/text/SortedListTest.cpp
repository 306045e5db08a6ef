#include "text/SortedList.h"

#include "text/TypedItemPtrList.h"
#include "text/TypedSortedList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::ElementsAre;

namespace
{

struct CItem
{
    int m_Key;
    char m_Name;
};

using CItemList = CTypedSortedList<CItem*>;

/// By key; upwards if `data` is null.
int CompareKeys(void* a, void* b, void* data)
{
    const int difference = static_cast<CItem*>(a)->m_Key - static_cast<CItem*>(b)->m_Key;
    return data ? -difference : difference;
}

std::string Names(const CItemList& list)
{
    std::string names;
    POSITION position = nullptr;
    for (const CItem* item = list.First(position); item; item = list.Next(position))
        names += item->m_Name;
    return names;
}

class SortedListTest : public testing::Test
{
protected:
    CItem m_Items[5] = {{2, 'a'}, {1, 'b'}, {2, 'c'}, {3, 'd'}, {1, 'e'}};
};

} // namespace

TEST_F(SortedListTest, EqualItemsStandBehindTheirEquals)
{
    CItemList list(CompareKeys);
    EXPECT_TRUE(list.IsSorted());

    for (CItem& item : m_Items)
        list.AddSorted(&item);

    EXPECT_EQ(Names(list), "beacd");
}

TEST_F(SortedListTest, ManyAtOnceStandAsIfAddedOneByOne)
{
    CPtrList all;
    for (CItem& item : m_Items)
        all.AddTail(&item);
    CItem first{2, 'x'};
    CSortedList list(CompareKeys);
    list.AddSorted(&first);

    list.AddSorted(all);

    std::string names;
    for (POSITION position = list.GetHeadPosition(); position;)
        names += static_cast<CItem*>(list.GetNext(position))->m_Name;
    EXPECT_EQ(names, "bexacd");
}

TEST_F(SortedListTest, NewComparisonSortsWhatIsThere)
{
    CItemList list;
    EXPECT_FALSE(list.IsSorted());
    for (CItem& item : m_Items)
        list.AddSorted(&item);
    EXPECT_EQ(Names(list), "abcde");

    int downwards = 0;
    list.SetSortFunction(CompareKeys, &downwards);

    EXPECT_EQ(Names(list), "dacbe");
    EXPECT_EQ(list.GetSortData(), &downwards);
    EXPECT_EQ(list.GetSortFunction(), &CompareKeys);
}

TEST_F(SortedListTest, UniqueItemsAreAddedOnce)
{
    CItemList list(CompareKeys);
    for (CItem& item : m_Items)
        list.AddUnique(&item);

    EXPECT_EQ(Names(list), "bad");
    EXPECT_EQ(list.AddUnique(&m_Items[2]), nullptr);
    EXPECT_EQ(list.GetAt(list.FindUnique(&m_Items[4])), &m_Items[1]);
    CItem absent{7, 'z'};
    EXPECT_EQ(list.FindUnique(&absent), nullptr);
}

TEST_F(SortedListTest, WalksGoRoundOnWish)
{
    CItemList list(CompareKeys);
    POSITION position = nullptr;
    EXPECT_EQ(list.First(position), nullptr);
    EXPECT_EQ(list.Next(position, true), nullptr);

    list.AddSorted(&m_Items[0]);
    list.AddSorted(&m_Items[1]);
    EXPECT_EQ(list.Last(position), &m_Items[0]);
    EXPECT_EQ(list.Next(position, true), &m_Items[1]);
    EXPECT_EQ(list.Prev(position, true), &m_Items[0]);
    EXPECT_EQ(list.This(position), &m_Items[0]);
    EXPECT_EQ(list.Next(position), nullptr);
    EXPECT_EQ(list.This(position), nullptr);
}

TEST(TypedItemPtrListTest, DeletedItemsAreOutOfTheListBeforeTheyGo)
{
    struct CLeaving
    {
        ~CLeaving() { m_Left = m_List.GetCount(); }
        CTypedItemPtrList<CPtrList, CLeaving*>& m_List;
        int& m_Left;
    };
    int left = -1;
    CTypedItemPtrList<CPtrList, CLeaving*> list;
    list.AddTail(new CLeaving{list, left});
    list.AddTail(new CLeaving{list, left});

    list.DeleteItems();

    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(left, 0);
}

} // namespace utility
