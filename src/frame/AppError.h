#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

class CEdit;
class CStdioFile;
class CWnd;
struct CWarningsRequest;

/// The one route of failures and warnings from low-level code to the user.
///
/// Whoever knows the reason records it by `SetLastError` and returns false; whoever talks to the
/// user calls `ReportLastError` or `ReportError`. Checks that find many things call `AddWarning`;
/// the command that started them calls `ReportWarnings` once. An id names an entry of the string
/// table or, where the table has none, a system code.
///
/// Any thread may record and report errors; the pair of code and text has one lock. Warnings and
/// lock counts belong to the user-interface thread.
class UTILITY_CORE_API CAppError
{
public:
    // The last error
    /// Keeps id and worded text, and makes id the thread's system code too. Id 0 forgets the last
    /// error.
    template <typename... TInserts>
    static void SetLastError(UINT id, const TInserts&... inserts)
    {
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        SetLastError(id, CFormatArguments(list));
    }
    static void SetLastError(UINT id, CFormatArguments inserts);
    /// Puts a saved pair back, without wording.
    static void ResetLastError(UINT id, const CString& text);
    static UINT GetLastError();
    /// The recorded text, or the system's words if the thread's system code is newer than the
    /// record.
    static CString GetLastErrorString();

    // Words
    /// The worded text of an id, without recording it; empty if neither table nor system knows the
    /// id.
    template <typename... TInserts>
    static CString GetErrorString(UINT id, const TInserts&... inserts)
    {
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        return GetErrorString(id, CFormatArguments(list));
    }
    static CString GetErrorString(UINT id, CFormatArguments inserts);

    // Reports: a trace line and a box; while errors are locked they only record
    template <typename... TInserts>
    static void ReportError(UINT id, const TInserts&... inserts)
    {
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        ReportError(id, CFormatArguments(list));
    }
    static void ReportError(UINT id, CFormatArguments inserts);
    /// Traced also while locked, then recorded under code 10690; an empty text shows nothing.
    static void ReportError(const CString& text);
    /// Reselects the offending edit first.
    static void ReportError(CEdit& edit, UINT id);
    static void ReportLastError();
    static bool AreErrorsUnlocked();

    // Warnings: held texts, each once
    /// Adds the text part of the entry, filled with the inserts, unless it is disabled or already
    /// held.
    template <typename... TInserts>
    static void AddWarning(UINT id, const TInserts&... inserts)
    {
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        AddWarning(id, CFormatArguments(list));
    }
    static void AddWarning(UINT id, CFormatArguments inserts);
    static int GetWarningCount();
    /// The last enabled warning that was added, also if its text was held already or empty.
    static UINT GetLastWarning();
    /// All held texts, each ending in a line feed.
    static CString GetWarningString();
    /// The part of the entry before its first line feed; an entry without one is its own name.
    static CString GetWarningName(UINT id);
    /// Does nothing while warnings are locked, unless forced. The last warning's id stays.
    static void ClearWarnings(bool force);
    static bool AreWarningsUnlocked();

    /// Shows the held warnings and forgets them; true for OK, and if there is nothing to show or
    /// warnings are locked. `reportFn` replaces the dialog's own report.
    static bool ReportWarnings(bool showCancel, UINT helpId, void (*reportFn)(void*),
                               void* reportArg, CWnd* parent);
    /// The same as a question.
    static bool ReportWarningsYesNo(UINT helpId, void (*reportFn)(void*), void* reportArg,
                                    CWnd* parent);
    /// Writes the held warnings; false if there are none. As many *bytes* of the UTF-16 text as it
    /// has units.
    static bool ReportWarnings(CStdioFile* file, bool clear);

    // Warning options, kept by the host
    static void RegisterWarning(UINT id);
    static void SetWarningEnabled(UINT id, bool enabled);
    /// False for all while the program is being tested.
    static bool IsWarningEnabled(UINT id);

private:
    friend class CErrorLock;
    friend class CWarningLock;

    static void LockErrors(bool lock);
    static void LockWarnings(bool lock);
    static bool ShowWarnings(CWarningsRequest& request, int preset);
    static void ShowError(const CString& text);
};

/// Silences error boxes of the whole process while it lives; `ReportError` then only records.
class UTILITY_CORE_API CErrorLock
{
public:
    CErrorLock() { CAppError::LockErrors(true); }
    ~CErrorLock() { CAppError::LockErrors(false); }
    CErrorLock(const CErrorLock&) = delete;
    CErrorLock& operator=(const CErrorLock&) = delete;
};

/// Holds warnings back while it lives: they are collected, and neither shown nor cleared.
class UTILITY_CORE_API CWarningLock
{
public:
    CWarningLock() { CAppError::LockWarnings(true); }
    ~CWarningLock() { CAppError::LockWarnings(false); }
    CWarningLock(const CWarningLock&) = delete;
    CWarningLock& operator=(const CWarningLock&) = delete;
};

/// Short ways to the operations of `CAppError`.
UTILITY_CORE_API void ReportError(CEdit& edit, UINT id);
UTILITY_CORE_API void ReportError(const CString& text);
template <typename... TInserts>
void ReportError(UINT id, const TInserts&... inserts)
{
    CAppError::ReportError(id, inserts...);
}

} // namespace utility
