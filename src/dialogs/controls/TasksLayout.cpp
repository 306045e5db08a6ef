#include "dialogs/controls/TasksLayout.h"

#include <algorithm>

namespace utility
{

std::vector<CTasksLayout::CPlacedLine> CTasksLayout::LayOut(int width) const
{
    std::vector<CPlacedLine> lines;
    int top = 0;
    const auto add = [&lines, &top, width](CLine line, int height)
    {
        lines.push_back({line, {0, top, width, top + height}});
        top += height;
    };
    for (int group = 0; group < static_cast<int>(m_Groups.size()); ++group)
    {
        const CGroup& content = m_Groups[static_cast<std::size_t>(group)];
        const int taskCount = content.m_IsOpen ? static_cast<int>(content.m_Tasks.size()) : 0;
        top += GROUP_GAP;
        add({group, -1}, CAPTION_HEIGHT);
        for (int task = 0; task < taskCount; ++task)
            add({group, task}, TASK_HEIGHT);
    }
    return lines;
}

int CTasksLayout::GetHeight() const
{
    const std::vector<CPlacedLine> lines = LayOut(0);
    return lines.empty() ? 0 : lines.back().m_Place.bottom + GROUP_GAP;
}

const CTasksLayout::CTask* CTasksLayout::FindTask(const CLine& line) const
{
    const CGroup& group = m_Groups[static_cast<std::size_t>(line.m_Group)];
    return line.m_Task < 0 ? nullptr : &group.m_Tasks[static_cast<std::size_t>(line.m_Task)];
}

CTasksLayout::CLine CTasksLayout::Step(const CLine& line, int steps) const
{
    std::vector<CLine> lines;
    for (const CPlacedLine& placed : LayOut(0))
    {
        const CTask* task = FindTask(placed.m_Line);
        if (!task || task->m_IsEnabled || placed.m_Line == line)
            lines.push_back(placed.m_Line);
    }
    auto present = std::ranges::find(lines, line);
    if (present == lines.end())
        present = std::ranges::find(lines, CLine{line.m_Group, -1});
    if (present == lines.end())
        return line;
    const std::ptrdiff_t last = std::ssize(lines) - 1;
    const std::ptrdiff_t next =
        std::clamp<std::ptrdiff_t>(present - lines.begin() + steps, 0, last);
    return lines[static_cast<std::size_t>(next)];
}

} // namespace utility
