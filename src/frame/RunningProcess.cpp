#include "frame/RunningProcess.h"

#include "platform/base/CaseFold.h"
#include "platform/base/PathText.h"
#include "platform/system/process/OwnHandle.h"
#include "platform/system/process/ProcessList.h"
#include "platform/system/window/LiveWindows.h"

namespace utility
{

namespace
{

/// Null for a program without a window.
HWND FindMainWindow(DWORD process)
{
    HWND found = nullptr;
    EnumWindows(
        [process, &found](const CLiveWindow& window)
        {
            if (window.m_ProcessId == process)
                found = window.m_Window;
            return found == nullptr;
        });
    return found;
}

} // namespace

bool CRunningProcess::Find(const CString& exeName)
{
    *this = CRunningProcess();
    const COwnHandle programs(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry;
    bool isMore = Process32FirstW(programs.Get(), entry);
    while (isMore && !m_Found)
    {
        const CPathParts parts = _wsplitpath(entry.szExeFile.View());
        if (EqualNoCase((parts.m_FileName + parts.m_Extension).View(), exeName.View()))
        {
            m_Found = true;
            m_Path = entry.szExeFile;
            m_ProcessId = entry.th32ProcessID;
        }
        else
        {
            isMore = Process32NextW(programs.Get(), entry);
        }
    }
    if (m_Found)
        m_Window = FindMainWindow(m_ProcessId);
    return m_Found;
}

} // namespace utility
