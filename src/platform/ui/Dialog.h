#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/DialogTemplate.h"

namespace utility
{

class CDataExchange;

/// A dialog: a window made of a template, with a keyboard of its own.
///
/// Keys, unless the focused control wants them for itself:
///
///     Tab, Shift+Tab     the next or previous control with WS_TABSTOP
///     arrows             the next or previous control of the group; a radio button is chosen
///     Enter              the focused push button, else the default one, else IDOK
///     Escape             IDCANCEL
///     Alt+letter         the control whose text has & before the letter, or the one behind a label
///
/// A modal dialog disables its owner's top-level window while it runs. Buttons come as WM_COMMAND;
/// IDOK and IDCANCEL go to `OnOK` and `OnCancel` unless the message map says otherwise.
class UTILITY_UI_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog() = default; // modeless: Create makes it
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(const char16_t* templateName, CWnd* parent = nullptr);
    ~CDialog() override;

    // Life
    /// Shows the dialog until it ends, and destroys its window; what `EndDialog` was given, or -1
    /// if there is no such template or the window went first. Without a parent the main window
    /// owns it.
    virtual int DoModal();
    /// Makes a modeless dialog, which the caller shows unless the template says so; false if there
    /// is no such template.
    bool Create(UINT templateId, CWnd* parent = nullptr);
    bool Create(const char16_t* templateName, CWnd* parent = nullptr);
    bool CreateIndirect(const CDialogTemplate& design, CWnd* parent = nullptr);
    /// Hides the dialog and lets `DoModal` return.
    void EndDialog(int result);

    // Contents
    /// Controls to members or, with false, members to controls; false if a control holds no fit
    /// value, which then has the focus.
    bool UpdateData(bool save = true);
    /// From dialog units of this dialog's font to pixels.
    void MapDialogRect(CRect& place) const;

    // The keyboard
    void GotoDlgCtrl(CWnd* control);
    void NextDlgCtrl();
    void PrevDlgCtrl();
    /// The id of the default button, 0 if there is none.
    UINT GetDefID() const;
    void SetDefID(UINT id);
    bool PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    const CMessageMap* GetMessageMap() const override;

protected:
    /// All controls are there; true gives the focus to the first one that takes it. The base moves
    /// members into controls.
    virtual bool OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    /// Names the members that go with controls.
    virtual void DoDataExchange(CDataExchange* exchange);

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool Load(CDialogTemplate& design) const;
    CWnd* FindOwner() const;
    CRect FindPlace(const CDialogTemplate& design, CWnd* parent) const;
    void MakeControls(const CDialogTemplate& design);
    bool Initialise();
    void Close();

    UINT m_TemplateId = 0;
    CString m_TemplateName; // used where the id is 0
    CWnd* m_Parent = nullptr;
    CDialogUnits m_Units;
    UINT m_DefaultId = 0;
};

} // namespace utility
