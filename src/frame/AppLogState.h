#pragma once

#include "frame/AppLog.h"
#include "frame/AppLogFile.h"

#include <mutex>
#include <vector>

namespace utility
{

/// What the log remembers between traces.
struct CAppLog::CState
{
    std::mutex m_Lock; // taken for one write, around nothing that leaves the log
    bool m_DiscardRepeats = false;
    std::atomic<int> m_IndentLevel = 0;
    int m_RepeatCount = 0;
    CString m_LastString;
    // In parallel, but for the levels of earlier starts, which stay in front. Changed by Start alone.
    std::vector<CString> m_Contexts;
    std::vector<int> m_Levels;
    CAppLogFile m_File;
};

} // namespace utility
