#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <vector>

namespace utility
{

class CString;
class CWnd;

/// A ready table for `CUtilIoOps`: which warnings are off, kept in the application's settings key
/// "Warnings".
///
/// Each disabled warning is one value there, named by its id in decimal with 0 as integer; all
/// others are on. User-interface thread.
class UTILITY_CORE_API CWarningOptions
{
public:
    /// Fills the table of `CUtilIoOps`.
    static void Install();

    /// The ids that were registered, in their order, for an options page.
    static const std::vector<UINT>& GetRegistered();

    static void RegisterWarning(UINT id);
    static void SetWarningEnabled(UINT id, bool enabled);
    static bool IsWarningEnabled(UINT id);
    /// There is no options page here: reported as not supported.
    static void ShowWarningOptionsDlg();
    /// Yes/No/Cancel; nothing here answers for all that follow.
    static int PromptYesNoAll(const CString& caption, const CString& text, CWnd* parent);
};

} // namespace utility
