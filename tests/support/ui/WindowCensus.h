#pragma once

#include <gtest/gtest.h>

namespace utility
{

/// Fails each test that leaves a top-level window behind, and ends what it left.
class CWindowCensus final : public testing::EmptyTestEventListener
{
public:
    void OnTestEnd(const testing::TestInfo& test) override;
};

} // namespace utility
