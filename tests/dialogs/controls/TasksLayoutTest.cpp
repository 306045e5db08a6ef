#include "dialogs/controls/TasksLayout.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

using CLine = CTasksLayout::CLine;

// A group of two tasks, of which the second is disabled, a closed group, and one of a single task.
CTasksLayout MakeLayout()
{
    CTasksLayout layout;
    layout.m_Groups = {{u"Design", true, {{u"Open", 1}, {u"Save", 2, false}}},
                       {u"Closed", false, {{u"Hidden", 3}}},
                       {u"Help", true, {{u"Contents", 4}}}};
    return layout;
}

TEST(TasksLayoutTest, StacksCaptionsAndTheTasksOfOpenGroups)
{
    const std::vector<CTasksLayout::CPlacedLine> lines = MakeLayout().LayOut(150);

    struct CCase
    {
        CLine m_Line;
        CRect m_Place;
    };
    const CCase cases[] = {{{0, -1}, {0, 8, 150, 32}},    {{0, 0}, {0, 32, 150, 52}},
                           {{0, 1}, {0, 52, 150, 72}},    {{1, -1}, {0, 80, 150, 104}},
                           {{2, -1}, {0, 112, 150, 136}}, {{2, 0}, {0, 136, 150, 156}}};
    ASSERT_EQ(lines.size(), std::size(cases));
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        SCOPED_TRACE(i);
        EXPECT_EQ(lines[i].m_Line, cases[i].m_Line);
        EXPECT_EQ(lines[i].m_Place, cases[i].m_Place);
    }
    EXPECT_EQ(MakeLayout().GetHeight(), 164);
    EXPECT_EQ(CTasksLayout().GetHeight(), 0);
}

TEST(TasksLayoutTest, StepsOverDisabledTasksAndStopsAtTheEnds)
{
    struct CCase
    {
        const char* m_Name;
        CLine m_From;
        int m_Steps;
        CLine m_To;
    };
    const CCase cases[] = {
        {"to a task", {0, -1}, 1, {0, 0}},
        {"over a disabled one", {0, 0}, 1, {1, -1}},
        {"back over it", {1, -1}, -1, {0, 0}},
        {"past a closed group's tasks", {1, -1}, 1, {2, -1}},
        {"beyond the end", {2, -1}, 9, {2, 0}},
        {"beyond the beginning", {0, 0}, -9, {0, -1}},
        {"from a disabled one", {0, 1}, 1, {1, -1}},
        {"from one that is not seen", {1, 0}, -1, {0, 0}},
    };
    const CTasksLayout layout = MakeLayout();

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(layout.Step(row.m_From, row.m_Steps), row.m_To);
    }
    EXPECT_EQ(CTasksLayout().Step({0, -1}, 1), (CLine{0, -1})) << "an empty pane";
}

} // namespace
} // namespace utility
