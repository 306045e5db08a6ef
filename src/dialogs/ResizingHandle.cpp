#include "dialogs/ResizingHandle.h"

#include "dialogs/BaseDialog.h"
#include "dialogs/DpiScale.h"
#include "dialogs/controls/PictureControl.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"

namespace utility
{

namespace
{

constexpr int HANDLE_SIZE = 12; // pixels at 96 dots per inch

CRect GetCorner(const CWnd& window)
{
    const int size = IsDpiScaling() ? CBaseDialog::DPIScale(HANDLE_SIZE) : HANDLE_SIZE;
    const CSize client = window.GetClientRect().Size();
    return {client.cx - size, client.cy - size, client.cx, client.cy};
}

} // namespace

void InsertResizingHandle(CWnd& window, CPictureControl& picture, bool isStyled)
{
    if (picture.GetSafeHwnd())
        picture.DestroyWindow();
    const UINT id = isStyled ? STYLED_HANDLE_ID : UNSTYLED_HANDLE_ID;
    picture.Create(id, WS_CHILD | WS_VISIBLE, GetCorner(window), &window, id);
}

void PlaceResizingHandle(const CWnd& window, CPictureControl& picture)
{
    const CRect corner = GetCorner(window);
    picture.SetWindowPos(nullptr, corner.left, corner.top, corner.Width(), corner.Height(),
                         SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace utility
