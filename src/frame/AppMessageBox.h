#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// A worker's box on its way to the main window, as `lParam` of "ShowAppMessageBox".
struct AppMessageBoxData_s
{
    BYTE m_IsId; // the message is a text's id, not a pointer to text
    UINT m_Type;
    UINT m_HelpId;
    int m_Result;
};

/// The one road of message boxes: traced, answered by a macro if one replays, held back while
/// locked.
///
/// Results are the `ID...` values; 0 while boxes are locked, so only `IDYES` is yes. A declined
/// Yes/No question clears the last error: to say no is no failure.
///
/// Any thread: a worker's box is carried to the main window and the worker waits, so the main
/// thread must go on handling messages: in its loop, or in `WaitForWorker`. A bare `join` of the
/// worker answers no boxes, and the two would wait for each other for ever. The answer is 0 if the
/// window or its loop has ended, or ends meanwhile. Without a main window the box goes straight to
/// the user interface. Boxes over a parent are for the main thread; elsewhere the parent is
/// ignored.
class UTILITY_CORE_API CAppMessageBox
{
public:
    /// Counts: as many unlocks as locks show boxes again.
    static void Lock(bool lock);

    static int Show(const char16_t* text, UINT type, UINT helpId);
    static int Show(UINT id, UINT type, UINT helpId);
    /// Over a parent's top-level window; without one, or over the main window, as the forms above
    /// with help id 0.
    static int Show(CWnd* parent, const char16_t* text, UINT type);
    static int Show(CWnd* parent, UINT id, UINT type);

    /// What the main window does with "ShowAppMessageBox": shows the box and leaves the answer in
    /// the record.
    static LRESULT Answer(WPARAM wParam, LPARAM lParam);
};

/// Registers the library's own warnings with the host's warning options.
UTILITY_CORE_API void RegisterUtilityWarnings();

} // namespace utility
