#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CString;
class CWnd;

/// The hooks of the host's warning options: a table of functions that the host fills, and a front
/// for each.
///
/// A front whose function is missing reports that at each call, also before `InitFunctions`; a
/// warning then counts as enabled and a question as answered 0. `CWarningOptions` is a ready table.
class UTILITY_CORE_API CUtilIoOps
{
public:
    using RegisterWarningFunc = void (*)(UINT id);
    using SetWarningEnabledFunc = void (*)(UINT id, bool enabled);
    using IsWarningEnabledFunc = bool (*)(UINT id);
    using ShowWarningOptionsDlgFunc = void (*)();
    using PromptYesNoAllFunc = int (*)(const CString& caption, const CString& text, CWnd* parent);

    static void InitFunctions(RegisterWarningFunc registerWarning,
                              SetWarningEnabledFunc setWarningEnabled,
                              IsWarningEnabledFunc isWarningEnabled,
                              ShowWarningOptionsDlgFunc showWarningOptionsDlg,
                              PromptYesNoAllFunc promptYesNoAll);

    static void RegisterWarning(UINT id);
    static void SetWarningEnabled(UINT id, bool enabled);
    static bool IsWarningEnabled(UINT id);
    static void ShowWarningOptionsDlg();
    static int PromptYesNoAll(const CString& caption, const CString& text, CWnd* parent);
};

} // namespace utility
