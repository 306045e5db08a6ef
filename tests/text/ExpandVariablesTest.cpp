#include "text/ExpandVariables.h"

#include "platform/base/Encoding.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(ExpandVariablesTest, NamesBetweenMarkersGiveTheirValues)
{
    const CEnvironmentVariable home("HOME", "x");
    const CEnvironmentVariable empty("UTILITY_TEST_EMPTY", "");
    const CEnvironmentVariable marked("UTILITY_TEST_MARKED", "%HOME%");
    const CEnvironmentVariable absent("NOPE", nullptr);
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Result;
        bool m_IsAllFound;
    } cases[] = {
        {u"", u"", true},
        {u"%HOME%\\a", u"x\\a", true},
        {u"%NOPE%\\a", u"%NOPE%\\a", false},
        {u"%NOPE%%HOME%", u"%NOPE%x", false},
        {u"100%", u"100%", true},
        {u"%HOME%100%", u"x100%", true},
        {u"a%%b", u"ab", true},
        {u"%%%", u"%", true},
        {u"%HOME%%HOME%", u"xx", true},
        {u"[%UTILITY_TEST_EMPTY%]", u"[]", true},
        {u"%UTILITY_TEST_MARKED%", u"%HOME%", true}, // a value is not expanded again
        {u"100% of %HOME%", u"100% of %HOME%", false},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Text));
        CString text = row.m_Text;
        EXPECT_EQ(ExpandVariables(text), row.m_IsAllFound);
        EXPECT_EQ(text, row.m_Result);
    }
}

TEST(ExpandVariablesTest, MarkerOfTheProcessCanBeChanged)
{
    const CEnvironmentVariable home("HOME", "x");
    CString own = u"$HOME$%HOME%";
    CString given = u"$HOME$%HOME%";

    SetExpandVariableChar(u'$');
    EXPECT_TRUE(ExpandVariables(own));
    EXPECT_TRUE(ExpandVariables(given, u'%'));
    SetExpandVariableChar(GetDefaultExpandVariableChar());

    EXPECT_EQ(own, u"x%HOME%");
    EXPECT_EQ(given, u"$HOME$x");
    EXPECT_EQ(GetExpandVariableChar(), u'%');
}

} // namespace utility
