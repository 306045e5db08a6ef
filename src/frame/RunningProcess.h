#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Looks whether a program runs, where, and with what window. One thread at a time.
class UTILITY_CORE_API CRunningProcess
{
public:
    /// Takes the first program of that file name with its extension, case-blind; false, and all
    /// members empty, if none runs.
    bool Find(const CString& exeName);

    /// In classic form.
    const CString& GetPath() const { return m_Path; }
    DWORD GetProcessID() const { return m_ProcessId; }
    /// The topmost window of the program if it is built on this library (LiveWindows.h), or what
    /// `SetWindow` gave; else null.
    HWND GetWindow() const { return m_Window; }
    void SetWindow(HWND window) { m_Window = window; }

private:
    CString m_Path;
    DWORD m_ProcessId = 0;
    bool m_Found = false;
    HWND m_Window = nullptr;
};

} // namespace utility
