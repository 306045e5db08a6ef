#include "utility/command/WordHint.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(WordHintTest, NearestWordIsTheOneASlipOfTheHandAway)
{
    const std::vector<std::string> known = {"get", "set", "list", "delete", "load"};
    const struct
    {
        const char* m_Word;
        const char* m_Nearest;
    } rows[] = {
        {"lst", "list"},      {"lisst", "list"},
        {"dleete", "delete"}, {"det", "get"}, // the first of equals
        {"delete", "delete"}, {"d", ""},
        {"xyz", ""},          {"", ""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Word);
        EXPECT_EQ(NearestWord(row.m_Word, known), row.m_Nearest);
    }
    EXPECT_EQ(NearestWord(std::string(100000, 'a'), known), ""); // at once
}

} // namespace utility
