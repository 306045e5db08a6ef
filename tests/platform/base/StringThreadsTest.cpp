#include "platform/base/String.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace utility;

TEST(StringThreadsTest, CopiesOfOneTextLiveApart)
{
    constexpr int ROUNDS = 2000;
    const CString shared = u"shared";
    std::vector<CString> results(4);
    std::vector<std::thread> threads;
    for (CString& result : results)
    {
        threads.emplace_back(
            [&result, copy = shared]() mutable
            {
                for (int i = 0; i < ROUNDS; ++i)
                {
                    CString other = copy; // holders come and go on all threads at once
                    other.SetAt(0, u'S');
                    result = other;
                }
                copy += u'!';
                result += copy;
            });
    }
    for (std::thread& thread : threads)
        thread.join();

    for (const CString& result : results)
        EXPECT_EQ(result, u"Sharedshared!");
    EXPECT_EQ(shared, u"shared");
}

TEST(StringThreadsTest, TheLastHolderMayBeAnywhere)
{
    for (int i = 0; i < 200; ++i)
    {
        CString text(u'x', 100);
        std::thread reader([copy = text] { EXPECT_EQ(copy.GetLength(), 100); });
        text.Empty();
        reader.join();
    }
}
