#include "dialogs/controls/ContextMenu.h"

#include "frame/MacroOps.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/InputState.h"

#include <utility>

namespace utility
{

namespace
{

/// Keeps the recorder from seeing what is done, as long as it lives.
class CRecordPause
{
public:
    CRecordPause() : m_WasRecording(CMacroOps::IsRecording())
    {
        if (m_WasRecording)
            CMacroOps::SetRecordSuspended(true);
    }
    ~CRecordPause()
    {
        if (m_WasRecording)
            CMacroOps::SetRecordSuspended(false);
    }
    CRecordPause(const CRecordPause&) = delete;
    CRecordPause& operator=(const CRecordPause&) = delete;

private:
    bool m_WasRecording;
};

} // namespace

IMPLEMENT_DYNAMIC(CContextMenu, CMenu)

CContextMenu::CContextMenu()
{
    CreatePopupMenu();
}

void CContextMenu::AddCommand(UINT id, const CString& text, bool isEnabled, bool isChecked)
{
    BeginGroup();
    AppendMenu((isEnabled ? MF_ENABLED : MF_GRAYED) | (isChecked ? MF_CHECKED : MF_UNCHECKED), id,
               text);
}

bool CContextMenu::AddCommand(UINT id, UINT textId, bool isEnabled, bool isChecked)
{
    CString text;
    if (!text.LoadString(textId))
        return false;
    AddCommand(id, text, isEnabled, isChecked);
    return true;
}

bool CContextMenu::AddMenu(const CString& text, CMenu& menu)
{
    BeginGroup();
    if (!AppendMenu(MF_POPUP, reinterpret_cast<WPARAM>(menu.GetSafeHmenu()), text))
        return false;
    menu.Detach();
    return true;
}

void CContextMenu::BeginGroup()
{
    if (std::exchange(m_HasSeparator, false))
        AppendMenu(MF_SEPARATOR);
}

UINT CContextMenu::Show(CWnd* parent)
{
    return Show(parent, utility::GetCursorPos());
}

UINT CContextMenu::Show(CWnd* parent, CPoint place)
{
    if (GetMenuItemCount() == 0 || CMacroOps::IsReplaying())
        return 0;
    const HWND owner = parent ? parent->GetSafeHwnd() : nullptr;
    UINT id = 0;
    {
        const CRecordPause pause;
        id = static_cast<UINT>(TrackPopupMenu(TPM_RETURNCMD, place.x, place.y, parent));
    }
    if (id == 0)
        return 0;
    CMacroOps::RecordCommand(id);
    // Looked up anew: the parent may have ended while the menu was up.
    if (const CWnd* target = CWnd::FromHandle(owner))
        target->PostMessage(WM_COMMAND, id);
    return id;
}

} // namespace utility
