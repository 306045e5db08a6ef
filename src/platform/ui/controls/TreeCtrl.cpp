#include "platform/ui/controls/TreeCtrl.h"

#include "platform/base/Rect.h"

#include <utility>

namespace utility
{

namespace
{

// What is put behind "no mark" in the state bits: 1 without, 2 with a mark.
constexpr UINT UNCHECKED_STATE = 1 << TVIS_STATEIMAGESHIFT;
constexpr UINT CHECKED_STATE = 2 << TVIS_STATEIMAGESHIFT;

LPARAM ToParameter(const void* record)
{
    return reinterpret_cast<LPARAM>(record);
}

} // namespace

IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

bool CTreeCtrl::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"SysTreeView32", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

HTREEITEM CTreeCtrl::InsertItem(const CString& text, HTREEITEM parent, HTREEITEM after)
{
    return InsertItem(text, -1, -1, parent, after);
}

HTREEITEM CTreeCtrl::InsertItem(const CString& text, int image, int selectedImage, HTREEITEM parent,
                                HTREEITEM after)
{
    TVINSERTSTRUCT insert;
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = text;
    insert.item.iImage = image;
    insert.item.iSelectedImage = selectedImage;
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(TVINSERTSTRUCT* insert)
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEM, 0, ToParameter(insert)));
}

bool CTreeCtrl::DeleteItem(HTREEITEM item)
{
    return SendMessage(TVM_DELETEITEM, 0, ToParameter(item)) != 0;
}

UINT CTreeCtrl::GetCount() const
{
    return static_cast<UINT>(SendMessage(TVM_GETCOUNT));
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const
{
    return GetNextItem(item, item == TVI_ROOT || !item ? TVGN_ROOT : TVGN_CHILD);
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT relation) const
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, relation, ToParameter(item)));
}

bool CTreeCtrl::SelectItem(HTREEITEM item)
{
    return SendMessage(TVM_SELECTITEM, TVGN_CARET, ToParameter(item)) != 0;
}

bool CTreeCtrl::Expand(HTREEITEM item, UINT action)
{
    return SendMessage(TVM_EXPAND, action, ToParameter(item)) != 0;
}

bool CTreeCtrl::EnsureVisible(HTREEITEM item)
{
    return SendMessage(TVM_ENSUREVISIBLE, 0, ToParameter(item)) != 0;
}

bool CTreeCtrl::GetItemRect(HTREEITEM item, CRect& place, bool textOnly) const
{
    TVITEMRECT request{item, {}};
    if (!SendMessage(TVM_GETITEMRECT, textOnly, ToParameter(&request)))
        return false;
    place = request.rect;
    return true;
}

HTREEITEM CTreeCtrl::HitTest(CPoint point, UINT* flags) const
{
    TVHITTESTINFO test;
    test.pt = point;
    SendMessage(TVM_HITTEST, 0, ToParameter(&test));
    if (flags)
        *flags = test.flags;
    return test.hItem;
}

bool CTreeCtrl::EditLabel(HTREEITEM item)
{
    return SendMessage(TVM_EDITLABEL, 0, ToParameter(item)) != 0;
}

CString CTreeCtrl::GetItemText(HTREEITEM item) const
{
    TVITEM request;
    request.mask = TVIF_TEXT;
    request.hItem = item;
    GetItem(&request);
    return request.pszText;
}

bool CTreeCtrl::SetItemText(HTREEITEM item, const CString& text)
{
    TVITEM change;
    change.mask = TVIF_TEXT;
    change.hItem = item;
    change.pszText = text;
    return SetItem(&change);
}

LPARAM CTreeCtrl::GetItemData(HTREEITEM item) const
{
    TVITEM request;
    request.mask = TVIF_PARAM;
    request.hItem = item;
    GetItem(&request);
    return request.lParam;
}

bool CTreeCtrl::SetItemData(HTREEITEM item, LPARAM data)
{
    TVITEM change;
    change.mask = TVIF_PARAM;
    change.hItem = item;
    change.lParam = data;
    return SetItem(&change);
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT mask) const
{
    TVITEM request;
    request.mask = TVIF_STATE;
    request.hItem = item;
    request.stateMask = mask;
    GetItem(&request);
    return request.state & mask;
}

bool CTreeCtrl::SetItemState(HTREEITEM item, UINT state, UINT mask)
{
    TVITEM change;
    change.mask = TVIF_STATE;
    change.hItem = item;
    change.state = state;
    change.stateMask = mask;
    return SetItem(&change);
}

bool CTreeCtrl::SetItemImage(HTREEITEM item, int image, int selectedImage)
{
    TVITEM change;
    change.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    change.hItem = item;
    change.iImage = image;
    change.iSelectedImage = selectedImage;
    return SetItem(&change);
}

bool CTreeCtrl::GetItem(TVITEM* item) const
{
    return SendMessage(TVM_GETITEM, 0, ToParameter(item)) != 0;
}

bool CTreeCtrl::SetItem(const TVITEM* item)
{
    return SendMessage(TVM_SETITEM, 0, ToParameter(item)) != 0;
}

bool CTreeCtrl::GetCheck(HTREEITEM item) const
{
    return GetItemState(item, TVIS_STATEIMAGEMASK) == CHECKED_STATE;
}

bool CTreeCtrl::SetCheck(HTREEITEM item, bool checked)
{
    return SetItemState(item, checked ? CHECKED_STATE : UNCHECKED_STATE, TVIS_STATEIMAGEMASK);
}

CImageList* CTreeCtrl::SetImageList(CImageList* images)
{
    SendMessage(TVM_SETIMAGELIST, 0, ToParameter(images));
    return std::exchange(m_Images, images);
}

} // namespace utility
