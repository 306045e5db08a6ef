#pragma once

#include "frame/AppLog.h"
#include "frame/AppLogFile.h"
#include "frame/RepeatFilter.h"

#include <vector>

namespace utility
{

/// What the log remembers between traces.
struct CAppLog::CState
{
    std::atomic<int> m_IndentLevel = 0;
    CRepeatFilter m_Repeats;
    CAppLogFile m_File;

    // Changed by Start alone
    bool m_DiscardRepeats = false;
    // In parallel, but for the levels of earlier starts, which stay in front
    std::vector<CString> m_Contexts;
    std::vector<int> m_Levels;
};

} // namespace utility
