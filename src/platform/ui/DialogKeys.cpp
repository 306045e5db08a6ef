#include "platform/ui/DialogKeys.h"

#include "platform/base/CaseFold.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/InputState.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

constexpr UINT EM_SELECT = 0x00B1;    // EM_SETSEL
constexpr UINT BUTTON_CLICK = 0x00F5; // BM_CLICK

/// The dialog's controls in the order of tabs, those of its pages where the page stands.
std::vector<CWnd*> ListControls(const CWnd& dialog)
{
    std::vector<CWnd*> found;
    std::vector<CWnd*> waiting = dialog.GetChildren();
    std::reverse(waiting.begin(), waiting.end());
    while (!waiting.empty())
    {
        CWnd* control = waiting.back();
        waiting.pop_back();
        const bool isPage = control->GetExStyle() & WS_EX_CONTROLPARENT;
        if (!isPage)
        {
            found.push_back(control);
        }
        else if ((control->GetStyle() & WS_VISIBLE) && control->IsWindowEnabled())
        {
            const std::vector<CWnd*> children = control->GetChildren();
            waiting.insert(waiting.end(), children.rbegin(), children.rend());
        }
    }
    return found;
}

bool CanTakeFocus(const CWnd& control)
{
    return control.IsWindowVisible() && control.IsWindowEnabled();
}

LRESULT DialogCodeOf(const CWnd* control)
{
    return control ? control->SendMessage(WM_GETDLGCODE) : 0;
}

/// The control of the row that stands for `from`: itself, or the one around it, as with the text
/// field of a list.
std::size_t FindIn(const std::vector<CWnd*>& row, const CWnd* from)
{
    for (; from; from = from->GetStyle() & WS_CHILD ? from->GetParent() : nullptr)
    {
        const auto found = std::find(row.begin(), row.end(), from);
        if (found != row.end())
            return static_cast<std::size_t>(found - row.begin());
    }
    return row.size();
}

/// Round the row from a place (its size: from outside); null if none fits.
template <typename TFits>
CWnd* FindRound(const std::vector<CWnd*>& row, std::size_t from, bool backwards, TFits fits)
{
    const std::size_t count = row.size();
    std::size_t index = from < count ? from : (backwards ? 0 : count - 1);
    for (std::size_t step = 0; step < count; ++step)
    {
        index = (index + (backwards ? count - 1 : 1)) % count;
        if (fits(*row[index]))
            return row[index];
    }
    return nullptr;
}

bool IsTabStop(const CWnd& control)
{
    return (control.GetStyle() & WS_TABSTOP) && CanTakeFocus(control);
}

void Command(CWnd& dialog, UINT id)
{
    const CWnd* button = dialog.GetDlgItem(static_cast<int>(id));
    if (!button || button->IsWindowEnabled())
        dialog.SendMessage(WM_COMMAND, id,
                           reinterpret_cast<LPARAM>(button ? button->GetSafeHwnd() : nullptr));
}

bool OnTab(CWnd& dialog, const CWnd* focused)
{
    if (DialogCodeOf(focused) & (DLGC_WANTTAB | DLGC_WANTALLKEYS) || IsKeyDown(VK_CONTROL))
        return false;
    if (CWnd* next = GetNextDlgTabItem(dialog, focused, IsKeyDown(VK_SHIFT)))
        FocusControl(*next);
    return true;
}

bool OnEnter(CWnd& dialog, const CWnd* focused)
{
    const LRESULT code = DialogCodeOf(focused);
    if (code & DLGC_WANTALLKEYS)
        return false;
    const bool isButton = code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON);
    const auto standard = static_cast<UINT>(dialog.SendMessage(DM_GETDEFID));
    if (isButton && focused->GetParent() == &dialog)
        Command(dialog, static_cast<UINT>(focused->GetDlgCtrlID()));
    else
        Command(dialog, standard ? standard : IDOK);
    return true;
}

bool OnEscape(CWnd& dialog, const CWnd* focused)
{
    if (DialogCodeOf(focused) & DLGC_WANTALLKEYS && !dialog.GetDlgItem(IDCANCEL))
        return false;
    Command(dialog, IDCANCEL);
    return true;
}

bool OnArrow(CWnd& dialog, const CWnd* focused, bool backwards)
{
    if (!focused || focused == &dialog ||
        (DialogCodeOf(focused) & (DLGC_WANTARROWS | DLGC_WANTALLKEYS)))
        return false;
    CWnd* next = GetNextDlgGroupItem(dialog, focused, backwards);
    if (!next || next == focused)
        return true;
    FocusControl(*next);
    if (DialogCodeOf(next) & DLGC_RADIOBUTTON)
        next->SendMessage(BUTTON_CLICK);
    return true;
}

/// The letter behind the first single &, folded; 0 if there is none.
char16_t MnemonicOf(const CWnd& control)
{
    const bool isLabel = control.GetClassName().CompareNoCase(u"Static") == 0;
    if (isLabel && (control.GetStyle() & SS_NOPREFIX))
        return 0;
    const CString text = control.GetWindowText();
    for (int i = 0; i + 1 < text.GetLength(); ++i)
    {
        if (text[i] != u'&')
            continue;
        if (text[i + 1] != u'&')
            return ToLower(text[i + 1]);
        ++i;
    }
    return 0;
}

bool OnMnemonic(CWnd& dialog, const CWnd* focused, char16_t letter)
{
    const std::vector<CWnd*> row = ListControls(dialog);
    const char16_t wanted = ToLower(letter);
    CWnd* named = FindRound(row, FindIn(row, focused), false,
                            [&](const CWnd& control)
                            { return MnemonicOf(control) == wanted && CanTakeFocus(control); });
    if (!named)
        return false;
    const LRESULT code = DialogCodeOf(named);
    const bool isButton = code & DLGC_BUTTON && !(code & DLGC_STATIC);
    CWnd* target = isButton ? named : FindRound(row, FindIn(row, named), false, IsTabStop);
    if (target)
        FocusControl(*target);
    if (isButton)
        named->SendMessage(BUTTON_CLICK);
    return true;
}

bool OnKey(CWnd& dialog, const CWnd* focused, WPARAM key)
{
    switch (key)
    {
    case VK_TAB:
        return OnTab(dialog, focused);
    case VK_RETURN:
        return OnEnter(dialog, focused);
    case VK_ESCAPE:
        return OnEscape(dialog, focused);
    case VK_LEFT:
    case VK_UP:
        return OnArrow(dialog, focused, true);
    case VK_RIGHT:
    case VK_DOWN:
        return OnArrow(dialog, focused, false);
    default:
        return false;
    }
}

} // namespace

CWnd* GetNextDlgTabItem(const CWnd& dialog, const CWnd* from, bool backwards)
{
    const std::vector<CWnd*> row = ListControls(dialog);
    return FindRound(row, FindIn(row, from), backwards, IsTabStop);
}

CWnd* GetNextDlgGroupItem(const CWnd& dialog, const CWnd* from, bool backwards)
{
    const std::vector<CWnd*> row = ListControls(dialog);
    const std::size_t place = FindIn(row, from);
    if (place == row.size())
        return nullptr;
    std::size_t first = place;
    while (first > 0 && !(row[first]->GetStyle() & WS_GROUP))
        --first;
    std::size_t last = place + 1;
    while (last < row.size() && !(row[last]->GetStyle() & WS_GROUP))
        ++last;
    const std::vector<CWnd*> group(row.begin() + static_cast<std::ptrdiff_t>(first),
                                   row.begin() + static_cast<std::ptrdiff_t>(last));
    return FindRound(group, place - first, backwards,
                     [](const CWnd& control)
                     { return CanTakeFocus(control) && !(DialogCodeOf(&control) & DLGC_STATIC); });
}

void FocusControl(CWnd& control)
{
    control.SetFocus();
    if (DialogCodeOf(&control) & DLGC_HASSETSEL)
        control.SendMessage(EM_SELECT, 0, -1);
}

bool HandleDialogKey(CWnd& dialog, UINT message, WPARAM wParam)
{
    const CWnd* focused = CWnd::GetFocus();
    switch (message)
    {
    case WM_KEYDOWN:
        return OnKey(dialog, focused, wParam);
    case WM_SYSKEYDOWN:
    case WM_SYSCHAR:
        return wParam > u' ' && OnMnemonic(dialog, focused, static_cast<char16_t>(wParam));
    case WM_CHAR:
        // Where letters are not typed, they need no Alt.
        return DialogCodeOf(focused) & DLGC_BUTTON && wParam > u' ' &&
               OnMnemonic(dialog, focused, static_cast<char16_t>(wParam));
    default:
        return false;
    }
}

} // namespace utility
