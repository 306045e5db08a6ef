#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CString;
class CWnd;

/// One pass between a dialog's controls and its members, in one of both directions.
///
///     void CPartDialog::DoDataExchange(CDataExchange* exchange)
///     {
///         CDialog::DoDataExchange(exchange);
///         DDX_Control(exchange, IDC_NOTES, m_NotesEdit);
///         DDX_Text(exchange, IDC_COUNT, m_Count);
///         DDX_Check(exchange, IDC_SHOW_ALL, m_ShowAll);
///     }
class UTILITY_UI_API CDataExchange
{
public:
    /// Thrown by `Fail`; `UpdateData` catches it.
    struct CFailure
    {
    };

    CDataExchange(CWnd* dialog, bool saves) : m_bSaveAndValidate(saves), m_pDlgWnd(dialog) {}

    /// The control, which a failure then goes back to; null if there is none.
    CWnd* PrepareCtrl(int id);
    CWnd* PrepareEditCtrl(int id);
    /// Ends the pass: the last control holds no fit value and gets the focus.
    [[noreturn]] void Fail();

    const bool m_bSaveAndValidate; // true: controls to members
    CWnd* const m_pDlgWnd;

private:
    HWND m_LastControl = nullptr;
    bool m_IsLastEdit = false;
};

// An absent control leaves the member as it is.

/// Makes the member answer for the control, the first time that members go into controls.
UTILITY_UI_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);

/// Numbers may have blanks around them; a text that is none, or one out of range, fails the pass.
UTILITY_UI_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
UTILITY_UI_API void DDX_Text(CDataExchange* exchange, int id, int& value);
UTILITY_UI_API void DDX_Text(CDataExchange* exchange, int id, UINT& value);
UTILITY_UI_API void DDX_Text(CDataExchange* exchange, int id, double& value);

/// 0 off, 1 on, 2 neither.
UTILITY_UI_API void DDX_Check(CDataExchange* exchange, int id, int& value);
UTILITY_UI_API void DDX_Check(CDataExchange* exchange, int id, bool& value);

} // namespace utility
