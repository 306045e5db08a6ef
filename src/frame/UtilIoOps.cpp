#include "frame/UtilIoOps.h"

#include "frame/AppError.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

/// The host's functions, in the order of `InitFunctions`.
struct CUtilIoFunctions
{
    CUtilIoOps::RegisterWarningFunc m_RegisterWarning = nullptr;
    CUtilIoOps::SetWarningEnabledFunc m_SetWarningEnabled = nullptr;
    CUtilIoOps::IsWarningEnabledFunc m_IsWarningEnabled = nullptr;
    CUtilIoOps::ShowWarningOptionsDlgFunc m_ShowWarningOptionsDlg = nullptr;
    CUtilIoOps::PromptYesNoAllFunc m_PromptYesNoAll = nullptr;
};

constinit CUtilIoFunctions functions;

/// Reports a missing function under the name of its front.
template <typename TFunction>
bool IsThere(TFunction function, const char16_t* name)
{
    if (!function)
        CAppError::ReportError(IDS_UTIL_IO_OPS_UNDEFINED, name);
    return function != nullptr;
}

} // namespace

void CUtilIoOps::InitFunctions(RegisterWarningFunc registerWarning,
                               SetWarningEnabledFunc setWarningEnabled,
                               IsWarningEnabledFunc isWarningEnabled,
                               ShowWarningOptionsDlgFunc showWarningOptionsDlg,
                               PromptYesNoAllFunc promptYesNoAll)
{
    functions = {registerWarning, setWarningEnabled, isWarningEnabled, showWarningOptionsDlg,
                 promptYesNoAll};
}

void CUtilIoOps::RegisterWarning(UINT id)
{
    if (IsThere(functions.m_RegisterWarning, u"RegisterWarning"))
        functions.m_RegisterWarning(id);
}

void CUtilIoOps::SetWarningEnabled(UINT id, bool enabled)
{
    if (IsThere(functions.m_SetWarningEnabled, u"SetWarningEnabled"))
        functions.m_SetWarningEnabled(id, enabled);
}

bool CUtilIoOps::IsWarningEnabled(UINT id)
{
    return !IsThere(functions.m_IsWarningEnabled, u"IsWarningEnabled") ||
           functions.m_IsWarningEnabled(id);
}

void CUtilIoOps::ShowWarningOptionsDlg()
{
    if (IsThere(functions.m_ShowWarningOptionsDlg, u"ShowWarningOptionsDlg"))
        functions.m_ShowWarningOptionsDlg();
}

int CUtilIoOps::PromptYesNoAll(const CString& caption, const CString& text, CWnd* parent)
{
    if (!IsThere(functions.m_PromptYesNoAll, u"PromptYesNoAll"))
        return 0;
    return functions.m_PromptYesNoAll(caption, text, parent);
}

} // namespace utility
