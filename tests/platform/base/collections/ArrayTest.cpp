#include "platform/base/collections/Array.h"

#include "platform/base/collections/ObArray.h"
#include "platform/base/collections/PtrArray.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/collections/TypedPtrArray.h"
#include "platform/base/object/InvalidArgException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::ElementsAre;

namespace
{

CArray<int> MakeArray(std::initializer_list<int> values)
{
    CArray<int> array;
    for (const int value : values)
        array.Add(value);
    return array;
}

std::vector<int> Values(const CArray<int>& array)
{
    return std::vector<int>(array.begin(), array.end());
}

/// True if the call raises the exception, which is then gone.
template <typename TCall>
bool Raises(TCall call)
{
    try
    {
        call();
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
        return true;
    }
    return false;
}

} // namespace

TEST(ArrayTest, WrongIndexesRaiseAndChangeNothing)
{
    CArray<int> array = MakeArray({1, 2, 3});
    const struct
    {
        const char* m_Name;
        std::function<void()> m_Call;
    } cases[] = {
        {"GetAt behind",
         [&]
         {
             (void)array.GetAt(3);
         }},
        {"GetAt -1",
         [&]
         {
             (void)array.GetAt(-1);
         }},
        {"SetAt behind",
         [&]
         {
             array.SetAt(3, 0);
         }},
        {"[] behind",
         [&]
         {
             array[3] = 0;
         }},
        {"ElementAt -1",
         [&]
         {
             array.ElementAt(-1) = 0;
         }},
        {"SetSize -1",
         [&]
         {
             array.SetSize(-1);
         }},
        {"SetAtGrow -1",
         [&]
         {
             array.SetAtGrow(-1, 0);
         }},
        {"InsertAt -1",
         [&]
         {
             array.InsertAt(-1, 0);
         }},
        {"InsertAt none",
         [&]
         {
             array.InsertAt(0, 0, 0);
         }},
        {"RemoveAt too many",
         [&]
         {
             array.RemoveAt(2, 2);
         }},
        {"RemoveAt count overflows",
         [&]
         {
             array.RemoveAt(1, 2147483647);
         }},
        {"RemoveAt negative count",
         [&]
         {
             array.RemoveAt(1, -1);
         }},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_TRUE(Raises(row.m_Call));
        EXPECT_THAT(Values(array), ElementsAre(1, 2, 3));
    }
}

TEST(ArrayTest, InsertingMovesElementsUpAndGrowsBehindTheEnd)
{
    CArray<int> array = MakeArray({1, 2, 3});

    array.InsertAt(1, 7, 2);
    EXPECT_THAT(Values(array), ElementsAre(1, 7, 7, 2, 3));
    array.InsertAt(6, 9);
    EXPECT_THAT(Values(array), ElementsAre(1, 7, 7, 2, 3, 0, 9));
    array.RemoveAt(1, 5);
    EXPECT_THAT(Values(array), ElementsAre(1, 9));
    array.SetAtGrow(3, 4);
    EXPECT_THAT(Values(array), ElementsAre(1, 9, 0, 4));
}

TEST(ArrayTest, OwnElementsAndTheArrayItselfAreSafeAsSources)
{
    CStringArray texts;
    texts.Add(u"first element, long enough to move");
    for (int i = 0; i < 100; ++i)
        texts.Add(texts[0]);
    texts.SetAtGrow(200, texts[0]);
    texts.InsertAt(0, texts[100], 3);

    EXPECT_EQ(texts.GetSize(), 204);
    EXPECT_EQ(texts[203], u"first element, long enough to move");

    CArray<int> array = MakeArray({1, 2});
    EXPECT_EQ(array.Append(array), 2);
    EXPECT_THAT(Values(array), ElementsAre(1, 2, 1, 2));
}

TEST(ArrayTest, ResizingKeepsTheFrontAndClearsTheRest)
{
    CArray<int> array = MakeArray({5, 6, 7});

    array.SetSize(2);
    array.SetSize(4, 10);

    EXPECT_THAT(Values(array), ElementsAre(5, 6, 0, 0));
    EXPECT_EQ(array.GetUpperBound(), 3);
    array.RemoveAll();
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(ArrayTest, TypedFaceGivesThePointersBackWithTheirType)
{
    int numbers[] = {1, 2};
    CTypedPtrArray<CPtrArray, int*> array;
    array.Add(&numbers[1]);
    array.InsertAt(0, &numbers[0]);

    EXPECT_EQ(*array[0], 1);
    EXPECT_EQ(*array.GetAt(1), 2);
    EXPECT_TRUE(Raises([&] { (void)array[2]; }));
}

} // namespace utility
