#include "frame/AppLog.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// The log's list of contexts, read in a process that has not started it before: a second start
/// keeps old levels.
class CFreshLog : public CAppLog
{
public:
    static void Load(const char16_t* contexts)
    {
        const CSettingsSandbox sandbox;
        CAppRegistry settings(u"Application");
        settings.SetValue(u"LoggingContext", contexts);
        settings.SetValue(u"Logging", 1);
        Start();
    }
};

/// The highest level below 10001 at which the context is written; -1 if at none.
int FindLevel(const char16_t* name)
{
    for (const int level : {10000, 9999, 9998, 5, 4, 3, 2, 1, 0})
    {
        if (CAppLog::IsStarted(CAppLogContext(name, level)))
            return level;
    }
    return -1;
}

const struct
{
    const char* m_Case;
    const char16_t* m_Contexts;
    const char16_t* m_Name;
    int m_Level;
} LEVELS[] = {
    {"level 0 by default", u"Comms", u"Comms", 0},
    {"given level", u"ReportError=2; Comms,!Old=5", u"ReportError", 2},
    {"any case", u"ReportError=2; Comms,!Old=5", u"REPORTERROR", 2},
    {"switched off", u"ReportError=2; Comms,!Old=5", u"Old", -1},
    {"highest", u"a=9999", u"a", 9999},
    {"too high", u"a=10000", u"a", -1},
    {"negative", u"a=-1", u"a", -1},
    {"beyond 32 bits", u"a=4294967297", u"a", -1},
    {"stranger behind digits", u"a=3x", u"a", 3},
    {"no digits", u"a=x", u"a", 0},
    {"nothing", u"a=", u"a", 0},
    {"second equals", u"a=1=2", u"a", 1},
    {"two equals alone", u"==", u"==", 0},
    {"blanks separate", u"Comms = 3", u"Comms", 0},
    {"a number is a name", u"Comms = 3", u"3", 0},
    {"the first entry counts", u"a=1 a=5", u"a", 1},
};

class AppLogLevelsTest : public testing::Test
{
protected:
    // A child that begins anew: one that carries the parent's settings over a fork would not be
    // safe.
    AppLogLevelsTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
    ~AppLogLevelsTest() override { GTEST_FLAG_SET(death_test_style, "fast"); }
};

TEST_F(AppLogLevelsTest, AreReadFromTheTokens)
{
    for (const auto& row : LEVELS)
    {
        SCOPED_TRACE(row.m_Case);
        // The child leaves with the level as its exit code, 100 for 9999 and 101 for none.
        EXPECT_EXIT(
            {
                CFreshLog::Load(row.m_Contexts);
                const int level = FindLevel(row.m_Name);
                exit(level < 0 ? 101 : std::min(level, 100));
            },
            testing::ExitedWithCode(row.m_Level < 0 ? 101 : std::min(row.m_Level, 100)), "");
    }
}

TEST_F(AppLogLevelsTest, OfAnEarlierStartStayInFront)
{
    EXPECT_EXIT(
        {
            CFreshLog::Load(u"a=1 b=2");
            CFreshLog::Load(u"b=5 c=5 d=5");
            exit(FindLevel(u"b") * 16 + FindLevel(u"c") * 4 + (FindLevel(u"d") == 5));
        },
        testing::ExitedWithCode(1 * 16 + 2 * 4 + 1), "");
}

} // namespace
} // namespace utility
