#include "SettingsDialog.h"

#include "dialogs/DialogControls.h"
#include "frame/AppLogSettings.h"
#include "frame/AppMessageBox.h"
#include "platform/base/NumberText.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogItems.h"
#include "settings/AppRegistry.h"

#include "Ids.h"

using namespace utility;

namespace partsdesk
{

namespace
{

void ShowNumber(CEdit& edit, int number)
{
    CString text;
    text.Format(u"%d", number);
    edit.SetWindowText(text);
}

} // namespace

CSettingsDialog::CSettingsDialog(const CDeskSettings& settings, CWnd* parent)
    : CDialog(DIALOG_SETTINGS, parent),
      m_Settings(settings)
{
}

const CMessageMap* CSettingsDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        CommandRow<&CSettingsDialog::OnPitchChange>(IDC_PITCH, EN_CHANGE)};
    static const CMessageMap MAP{CDialog::GetMessageMap(), ROWS};
    return &MAP;
}

void CSettingsDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_COLUMNS, m_Columns);
    DDX_Control(exchange, IDC_IDLE_TIME, m_IdleTime);
    DDX_Control(exchange, IDC_PITCH, m_Pitch);
}

bool CSettingsDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    ShowNumber(m_Columns, m_Settings.m_Columns);
    ShowNumber(m_IdleTime, m_Settings.m_IdleMilliseconds);
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
    CDialog::OnOK();
}

bool CSettingsDialog::TakeNumber(CEdit& edit, int most, int& number)
{
    const CString text = edit.GetWindowText();
    const char16_t* end = nullptr;
    const int value = wcstol(text, &end, 10);
    if (*end == u'\0' && value >= 1 && value <= most)
    {
        number = value;
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
