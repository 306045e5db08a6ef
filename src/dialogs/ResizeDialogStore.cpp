#include "dialogs/ResizeDialog.h"
#include "dialogs/WindowPlacement.h"
#include "dialogs/WindowPosition.h"
#include "frame/AppInstance.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/WindowStyles.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t SECOND_CHILD_HEIGHT[] = u"SecondChildHeight";

} // namespace

void CResizeDialog::SetSizeRegistryKey(const CString& key)
{
    m_SizeRegistryKey.Format(u"%s\\%s", key, u"Window");
}

CWnd* CResizeDialog::GetSecondChild() const
{
    const CWnd* first = GetTopWindow();
    return first ? first->GetNextWindow() : nullptr;
}

void CResizeDialog::RestoreSize()
{
    if (m_SizeRegistryKey.IsEmpty())
        return;

    const CWnd* second = m_HasTwoStretchControls ? GetSecondChild() : nullptr;
    if (second)
    {
        m_FirstChildMinimum = GetTopWindow()->GetWindowRect().Height();
        m_SecondChildMinimum = second->GetWindowRect().Height();
    }

    CRect place;
    if (GetWindowPosition(m_SizeRegistryKey, place))
    {
        if (m_SecondChildMinimum > 0)
            RestoreSecondChild();
        SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (GetWindowMaximised(m_SizeRegistryKey))
        ShowWindow(SW_MAXIMIZE);
}

// The window grows once by what the second child shall have more; what the kept place adds to that
// then goes to the first.
void CResizeDialog::RestoreSecondChild()
{
    int height = 0;
    const CAppRegistry settings(CAppInstance::GetKey(m_SizeRegistryKey, true));
    if (!settings.GetValue(SECOND_CHILD_HEIGHT, height) || height <= m_SecondChildMinimum ||
        height > GetVirtualScreen().Height())
        return;

    m_IsRestoringSecondChild = true;
    SetWindowPos(nullptr, 0, 0, m_MinimumWidth, m_MinimumHeight + height - m_SecondChildMinimum,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_IsRestoringSecondChild = false;
}

void CResizeDialog::StoreSize()
{
    if (m_SizeRegistryKey.IsEmpty())
        return;

    SaveWindowMaximised(*this, m_SizeRegistryKey);
    SaveWindowPosition(*this, m_SizeRegistryKey);
    const CWnd* second = m_HasTwoStretchControls ? GetSecondChild() : nullptr;
    if (!second)
        return;
    CAppRegistry settings(CAppInstance::GetKey(m_SizeRegistryKey, false));
    settings.SetValue(SECOND_CHILD_HEIGHT, static_cast<int>(second->GetWindowRect().Height()));
}

} // namespace utility
