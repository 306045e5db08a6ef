#include "SettingsDialog.h"

#include "dialogs/DialogControls.h"
#include "frame/AppLogSettings.h"
#include "frame/AppMessageBox.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogItems.h"
#include "settings/AppRegistry.h"

#include "Ids.h"

#include <cmath>

using namespace utility;

namespace partsdesk
{

CSettingsDialog::CSettingsDialog(const CDeskSettings& settings, CWnd* parent)
    : CBaseDialog(DIALOG_SETTINGS, parent),
      m_Settings(settings)
{
}

const CMessageMap* CSettingsDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        CommandRow<&CSettingsDialog::OnPitchChange>(IDC_PITCH, EN_CHANGE)};
    static const CMessageMap MAP{CBaseDialog::GetMessageMap(), ROWS};
    return &MAP;
}

void CSettingsDialog::DoDataExchange(CDataExchange* exchange)
{
    CBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_COLUMNS, m_Columns);
    DDX_Control(exchange, IDC_IDLE_TIME, m_IdleTime);
    DDX_Control(exchange, IDC_PITCH, m_Pitch);
}

bool CSettingsDialog::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    m_Columns.SetPrecision(0);
    m_Columns.SetValue(m_Settings.m_Columns);
    m_IdleTime.SetPrecision(0);
    m_IdleTime.SetValue(m_Settings.m_IdleMilliseconds);
    m_Pitch.SetWindowText(m_Settings.m_Pitch);
    OnPitchChange();
    int logging = 0;
    CAppRegistry(LOG_SETTINGS_KEY).GetValue(LOG_SWITCH, logging);
    CheckDlgButton(*this, IDC_LOGGING, logging > 0);
    return true;
}

/// Says how the length is read while it is typed.
void CSettingsDialog::OnPitchChange()
{
    double millimetres = 0;
    SetDlgItemText(*this, IDC_PITCH_READ,
                   ReadPitch(m_Pitch.GetWindowText(), millimetres)
                       ? u"A body of 8 pins is " + BodyLength(8, millimetres)
                       : CString(u"This is no length above 0"));
}

void CSettingsDialog::OnOK()
{
    double millimetres = 0;
    if (!TakeNumber(m_Columns, CDeskSettings::MOST_COLUMNS, m_Settings.m_Columns) ||
        !TakeNumber(m_IdleTime, CDeskSettings::MOST_IDLE_MILLISECONDS,
                    m_Settings.m_IdleMilliseconds))
        return;
    if (!ReadPitch(m_Pitch.GetWindowText(), millimetres))
    {
        Refuse(m_Pitch, u"Please give a length above 0, such as 2.54 mm or 100 thou.");
        return;
    }
    m_Settings.m_Pitch = m_Pitch.GetWindowText();
    const int logging = IsDlgButtonChecked(*this, IDC_LOGGING) != 0 ? 1 : 0;
    CAppRegistry(LOG_SETTINGS_KEY).SetValue(LOG_SWITCH, logging);
    CBaseDialog::OnOK();
}

bool CSettingsDialog::TakeNumber(CFloatEdit& edit, int most, int& number)
{
    double value = 0;
    if (edit.GetValue(value) && value >= 1 && value <= most && value == std::floor(value))
    {
        number = static_cast<int>(value);
        return true;
    }
    CString reason;
    reason.Format(u"Please give a whole number from 1 to %d.", most);
    Refuse(edit, reason);
    return false;
}

void CSettingsDialog::Refuse(CEdit& edit, const CString& reason)
{
    CAppMessageBox::Show(this, reason, MB_OK);
    ReselectControl(edit);
}

} // namespace partsdesk
