#include "dialogs/PersistDialog.h"

#include "platform/system/window/WindowMessages.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CPersistDialog, CResizeDialog)

namespace
{

constexpr DWORD SHOW_FIRST = 4; // of RunModalLoop

} // namespace

CPersistDialog::CPersistDialog(UINT templateId, CWnd* parent, bool isResizable)
    : CResizeDialog(templateId, parent, isResizable, false)
{
}

CPersistDialog::~CPersistDialog()
{
    Die();
}

const CMessageMap* CPersistDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {MessageRow<&CPersistDialog::OnDestroy>(WM_DESTROY)};
    static const CMessageMap MAP{CResizeDialog::GetMessageMap(), ROWS};
    return &MAP;
}

bool CPersistDialog::OnInitDialog()
{
    m_SavedWindow = GetSafeHwnd();
    return CResizeDialog::OnInitDialog();
}

bool CPersistDialog::DestroyWindow()
{
    ShowWindow(SW_HIDE);
    EnableWindow(false);
    return false;
}

void CPersistDialog::Die()
{
    CBaseDialog::DestroyWindow();
    m_SavedWindow = nullptr;
}

// Here and not in Die, since the owner's end takes the window along.
LRESULT CPersistDialog::OnDestroy(WPARAM wParam, LPARAM lParam)
{
    StoreSize();
    return DefWindowProc(WM_DESTROY, wParam, lParam);
}

int CPersistDialog::DoModal()
{
    // The window may have ended with its owner.
    m_IsFirstTime = !m_SavedWindow || !FromHandle(m_SavedWindow);
    const int result = m_IsFirstTime ? CResizeDialog::DoModal() : ShowAgain();
    Attach(m_SavedWindow); // unless the base has left it to this object
    OnHideWindow();
    return result;
}

int CPersistDialog::ShowAgain()
{
    ExpectModalLoop();
    CWnd* owner = GetOwner();
    const HWND ownerWindow = owner ? owner->GetSafeHwnd() : nullptr;
    const bool disablesOwner = owner && owner->EnableWindow(false);
    EnableWindow(true);
    OnDisplayWindow();
    const int result = RunModalLoop(SHOW_FIRST);

    owner = FromHandle(ownerWindow); // it may be gone by now
    if (disablesOwner && owner)
    {
        owner->EnableWindow(true);
        if (!GetActiveWindow() || GetActiveWindow() == this)
            owner->SetActiveWindow();
    }
    return result;
}

} // namespace utility
