#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// The one road of message boxes: traced, answered by a macro if one replays, held back while
/// locked.
///
/// Results are the `ID...` values; 0 while boxes are locked, so only `IDYES` is yes. A declined
/// Yes/No question clears the last error: to say no is no failure.
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

private:
    static int Ask(const CString& text, UINT type, UINT helpId);
    static int ShowOver(CWnd& tool, const CString& text, UINT type);
    static int Conclude(UINT type, int result);
};

/// Registers the library's own warnings with the host's warning options.
UTILITY_CORE_API void RegisterUtilityWarnings();

} // namespace utility
