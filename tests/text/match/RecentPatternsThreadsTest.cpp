#include "text/match/StringMatch.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>

namespace utility
{
namespace
{

/// Failed matches of many patterns in turn, each with both case flags; short ones and long.
int CountFailures(char16_t first)
{
    int failures = 0;
    for (int round = 0; round < 20; ++round)
    {
        for (char16_t number = u'0'; number <= u'9'; ++number)
        {
            for (const std::size_t length : {std::size_t{1}, std::size_t{256}, std::size_t{1000}})
            {
                const std::u16string name = std::u16string(length, first) + number;
                const std::u16string pattern = name + u"%i";
                const std::u16string other = std::u16string(length, u'A') + number + u"12";
                const std::u16string text = name + u"12";
                failures += StringMatch(pattern.c_str(), text.c_str(), true) ? 0 : 1;
                failures += StringMatch(pattern.c_str(), other.c_str(), true) ? 1 : 0;
                failures +=
                    StringMatch(pattern.c_str(), other.c_str(), false) == (first == u'a') ? 0 : 1;
            }
        }
    }
    return failures;
}

TEST(RecentPatternsThreadsTest, PatternsInTurnAreNotTakenForEachOther)
{
    std::array<int, 4> failures{};
    std::array<std::thread, 4> threads;
    for (std::size_t index = 0; index < threads.size(); ++index)
    {
        const auto first = static_cast<char16_t>(u'a' + index);
        threads[index] =
            std::thread([&failures, index, first] { failures[index] = CountFailures(first); });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(failures, (std::array<int, 4>{}));
}

} // namespace
} // namespace utility
