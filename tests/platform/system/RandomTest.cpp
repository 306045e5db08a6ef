#include "platform/system/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace utility
{

TEST(RandomTest, FillsEachByteOfAnyLength)
{
    // Each byte stays 0 in all of 16 draws once in 2^128 runs.
    std::array<unsigned char, 1000> seen{};
    for (int i = 0; i < 16; ++i)
    {
        std::array<unsigned char, 1000> drawn{};
        FillRandom(drawn.data(), drawn.size());
        std::ranges::transform(seen, drawn, seen.begin(), std::bit_or<>());
    }
    EXPECT_EQ(std::ranges::count(seen, 0), 0);
}

TEST(RandomTest, TestMaySetTheBytes)
{
    static constexpr CRandomSource SOURCE{[](void* bytes, std::size_t count)
                                          {
                                              std::memset(bytes, 7, count);
                                          }};
    SetRandomSource(&SOURCE);
    std::array<unsigned char, 3> bytes{};
    FillRandom(bytes.data(), bytes.size());
    SetRandomSource(nullptr);

    EXPECT_EQ(bytes, (std::array<unsigned char, 3>{7, 7, 7}));
}

} // namespace utility
