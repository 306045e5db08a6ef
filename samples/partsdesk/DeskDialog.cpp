#include "DeskDialog.h"

#include "dialogs/WindowPosition.h"
#include "platform/base/Rect.h"

using namespace utility;

namespace partsdesk
{

CDeskDialog::CDeskDialog(UINT templateId, const CString& key, CWnd* parent)
    : CDialog(templateId, parent),
      m_Key(key)
{
}

bool CDeskDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    // The layout tells the size: what was kept by an older one would cut controls off.
    CRect kept;
    if (GetWindowPosition(GetPlaceKey(), kept))
        MoveWindow({kept.TopLeft(), GetWindowRect().Size()});
    return true;
}

bool CDeskDialog::DestroyWindow()
{
    if (m_hWnd)
        SaveWindowPosition(*this, GetPlaceKey());
    return CDialog::DestroyWindow();
}

} // namespace partsdesk
