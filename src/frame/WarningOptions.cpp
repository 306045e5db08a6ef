#include "frame/WarningOptions.h"

#include "frame/AppError.h"
#include "frame/UtilIoOps.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/UserInterface.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t WARNINGS_KEY[] = u"Warnings";

/// The name of a warning's value in the key.
CString GetValueName(UINT id)
{
    CString name;
    name.Format(u"%u", id);
    return name;
}

std::vector<UINT>& Registered()
{
    static std::vector<UINT>& registered = *new std::vector<UINT>;
    return registered;
}

} // namespace

void CWarningOptions::Install()
{
    CUtilIoOps::InitFunctions(RegisterWarning, SetWarningEnabled, IsWarningEnabled,
                              ShowWarningOptionsDlg, PromptYesNoAll);
}

const std::vector<UINT>& CWarningOptions::GetRegistered()
{
    return Registered();
}

void CWarningOptions::RegisterWarning(UINT id)
{
    std::vector<UINT>& registered = Registered();
    if (std::find(registered.begin(), registered.end(), id) == registered.end())
        registered.push_back(id);
}

void CWarningOptions::SetWarningEnabled(UINT id, bool enabled)
{
    CAppRegistry key(WARNINGS_KEY);
    if (enabled)
        key.DeleteValue(GetValueName(id));
    else
        key.SetValue(GetValueName(id), 0);
}

bool CWarningOptions::IsWarningEnabled(UINT id)
{
    int enabled = 1;
    CAppRegistry(WARNINGS_KEY).GetValue(GetValueName(id), enabled);
    return enabled != 0;
}

void CWarningOptions::ShowWarningOptionsDlg()
{
    CAppError::ReportError(ERROR_NOT_SUPPORTED);
}

int CWarningOptions::PromptYesNoAll(const CString& caption, const CString& text, CWnd* parent)
{
    return GetUserInterface().ShowBox({parent, text, caption, MB_YESNOCANCEL | MB_ICONQUESTION, 0});
}

} // namespace utility
