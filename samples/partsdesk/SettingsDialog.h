#pragma once

#include "dialogs/BaseDialog.h"
#include "dialogs/FloatEdit.h"
#include "platform/ui/controls/Edit.h"

#include "DeskSettings.h"

namespace partsdesk
{

/// Asks for the desk's settings. What is no number, or no length, keeps the dialog open.
class CSettingsDialog : public utility::CBaseDialog
{
public:
    CSettingsDialog(const CDeskSettings& settings, utility::CWnd* parent);

    /// After OK.
    const CDeskSettings& GetSettings() const { return m_Settings; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(utility::CDataExchange* exchange) override;

private:
    const utility::CMessageMap* GetMessageMap() const override;
    void OnPitchChange();
    bool TakeNumber(utility::CFloatEdit& edit, int most, int& number);
    void Refuse(utility::CEdit& edit, const utility::CString& reason);

    CDeskSettings m_Settings;
    utility::CFloatEdit m_Columns;
    utility::CFloatEdit m_IdleTime;
    utility::CEdit m_Pitch;
};

} // namespace partsdesk
