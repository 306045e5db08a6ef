#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <vector>

namespace utility
{

/// The lines of a tasks pane, from top to bottom: captions of groups, and the tasks of those that
/// are open. Which lines there are, where they stand and where the keys lead. Pixels.
class UTILITY_UI_API CTasksLayout
{
public:
    static constexpr int CAPTION_HEIGHT = 24;
    static constexpr int TASK_HEIGHT = 20;
    static constexpr int GROUP_GAP = 8; // above each group

    /// What stands on a line.
    struct CLine
    {
        int m_Group = 0;
        int m_Task = -1; // -1 for the group's caption

        bool operator==(const CLine&) const = default;
    };

    struct CTask
    {
        CString m_Text;
        UINT m_Command = 0;
        bool m_IsEnabled = true;
    };

    struct CGroup
    {
        CString m_Caption;
        bool m_IsOpen = true;
        std::vector<CTask> m_Tasks;
    };

    std::vector<CGroup> m_Groups;

    struct CPlacedLine
    {
        CLine m_Line;
        CRect m_Place;
    };

    /// All lines that can be seen, if there is room.
    std::vector<CPlacedLine> LayOut(int width) const;
    /// Of all of them.
    int GetHeight() const;
    /// Null for a caption.
    const CTask* FindTask(const CLine& line) const;

    /// The line that a number of steps leads to, up if negative; tasks that are disabled are passed
    /// over. The line itself where there is no other. One that is not seen counts as its caption.
    CLine Step(const CLine& line, int steps) const;
};

} // namespace utility
