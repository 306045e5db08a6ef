#include "platform/base/collections/List.h"

#include "platform/base/collections/ObList.h"
#include "platform/base/collections/StringList.h"
#include "platform/base/collections/TypedPtrList.h"
#include "platform/base/object/InvalidArgException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::ElementsAre;

namespace
{

std::vector<int> Forwards(const CList<int>& list)
{
    std::vector<int> values;
    for (POSITION position = list.GetHeadPosition(); position;)
        values.push_back(list.GetNext(position));
    return values;
}

std::vector<int> Backwards(const CList<int>& list)
{
    std::vector<int> values;
    for (POSITION position = list.GetTailPosition(); position;)
        values.push_back(list.GetPrev(position));
    return values;
}

CList<int> MakeList(std::initializer_list<int> values)
{
    CList<int> list;
    for (const int value : values)
        list.AddTail(value);
    return list;
}

} // namespace

TEST(ListTest, EveryWayOfAddingAndRemovingKeepsBothChains)
{
    CList<int> list = MakeList({2, 4});

    const POSITION one = list.AddHead(1);
    list.InsertAfter(list.Find(2), 3);
    list.InsertBefore(one, 0);
    list.InsertBefore(nullptr, -1);
    list.InsertAfter(nullptr, 5);
    EXPECT_THAT(Forwards(list), ElementsAre(-1, 0, 1, 2, 3, 4, 5));
    EXPECT_THAT(Backwards(list), ElementsAre(5, 4, 3, 2, 1, 0, -1));

    list.RemoveAt(list.Find(2));
    EXPECT_EQ(list.RemoveHead(), -1);
    EXPECT_EQ(list.RemoveTail(), 5);
    EXPECT_THAT(Forwards(list), ElementsAre(0, 1, 3, 4));
    EXPECT_THAT(Backwards(list), ElementsAre(4, 3, 1, 0));
    EXPECT_EQ(list.GetCount(), 4);
}

TEST(ListTest, AddingAListKeepsItsOrderAlsoOntoItself)
{
    CList<int> list = MakeList({1, 2});

    list.AddTail(list);
    EXPECT_THAT(Forwards(list), ElementsAre(1, 2, 1, 2));
    list.AddHead(MakeList({8, 9}));
    EXPECT_THAT(Forwards(list), ElementsAre(8, 9, 1, 2, 1, 2));
    list.AddHead(list);
    EXPECT_EQ(list.GetCount(), 12);
    EXPECT_EQ(Forwards(list)[6], 8);
}

TEST(ListTest, CurrentElementMayBeRemovedWhileWalking)
{
    CList<int> list = MakeList({1, 2, 3, 4});

    for (POSITION next = list.GetHeadPosition(); next;)
    {
        const POSITION current = next;
        if (list.GetNext(next) % 2 == 0)
            list.RemoveAt(current);
    }

    EXPECT_THAT(Forwards(list), ElementsAre(1, 3));
}

TEST(ListTest, FindGoesOnBehindAPositionAndFindIndexKnowsItsBounds)
{
    const CList<int> list = MakeList({7, 8, 7});

    const POSITION first = list.Find(7);
    EXPECT_EQ(first, list.GetHeadPosition());
    EXPECT_EQ(list.Find(7, first), list.GetTailPosition());
    EXPECT_EQ(list.Find(7, list.GetTailPosition()), nullptr);
    EXPECT_EQ(list.FindIndex(2), list.GetTailPosition());
    EXPECT_EQ(list.FindIndex(3), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
}

TEST(ListTest, EmptyListsAndNullPositionsRaise)
{
    CList<int> list;
    POSITION none = nullptr;
    const std::function<void()> cases[] = {
        [&] { list.GetHead(); },      [&] { list.GetTail(); },     [&] { list.RemoveHead(); },
        [&] { list.RemoveTail(); },   [&] { list.GetAt(none); },   [&] { list.SetAt(none, 1); },
        [&] { list.RemoveAt(none); }, [&] { list.GetNext(none); },
    };

    for (std::size_t i = 0; i < std::size(cases); ++i)
    {
        SCOPED_TRACE(i);
        try
        {
            cases[i]();
            ADD_FAILURE() << "nothing was raised";
        }
        catch (CInvalidArgException* exception)
        {
            const CExceptionGuard guard(exception);
            EXPECT_TRUE(list.IsEmpty());
        }
    }
}

TEST(ListTest, CopiesAreDeepAndMovesLeaveAnEmptyList)
{
    CStringList first;
    first.AddTail(u"a");
    CStringList second = first;
    second.GetHead() = u"b";
    EXPECT_EQ(first.GetHead(), u"a");

    const CStringList third = std::move(second);
    EXPECT_EQ(third.GetHead(), u"b");
    EXPECT_TRUE(second.IsEmpty());
}

TEST(ListTest, TypedFaceGivesThePointersBackWithTheirType)
{
    CInvalidArgException exception;
    CTypedPtrList<CObList, CInvalidArgException*> list;
    list.AddTail(&exception);

    POSITION position = list.GetHeadPosition();
    CInvalidArgException* found = list.GetNext(position);
    EXPECT_EQ(found, &exception);
    EXPECT_EQ(position, nullptr);
    EXPECT_EQ(list.RemoveHead(), &exception);
}

} // namespace utility
