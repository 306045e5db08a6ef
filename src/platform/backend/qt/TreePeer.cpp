#include "platform/backend/qt/TreePeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/backend/qt/StaticPeer.h"
#include "platform/backend/qt/TreeView.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"

#include <utility>

namespace utility
{

std::unique_ptr<CQtWindowPeer> MakeTreePeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CTreePeer>(request, parent);
}

CTreePeer::CTreePeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, new CTreeView(*this, parent))
{
    QTreeWidget& tree = Tree();
    tree.setHeaderHidden(true);
    tree.setColumnCount(1);
    tree.setUniformRowHeights(true);
    tree.setRootIsDecorated((request.m_Style & TVS_LINESATROOT) != 0);
    tree.setItemsExpandable((request.m_Style & TVS_HASBUTTONS) != 0);
    tree.setEditTriggers(request.m_Style & TVS_EDITLABELS ? QAbstractItemView::EditKeyPressed |
                                                                QAbstractItemView::SelectedClicked
                                                          : QAbstractItemView::NoEditTriggers);
    if (!(request.m_Style & WS_BORDER))
        tree.setFrameShape(QFrame::NoFrame);
    Bridge().Watch(*tree.viewport());

    QObject::connect(
        &tree, &QTreeWidget::currentItemChanged, &Bridge(),
        [this](QTreeWidgetItem* after, QTreeWidgetItem* before)
        { OnSelected(static_cast<CTreeItem*>(before), static_cast<CTreeItem*>(after)); });
    QObject::connect(&tree, &QTreeWidget::itemChanged, &Bridge(),
                     [this](QTreeWidgetItem* item, int)
                     { OnLabel(static_cast<CTreeItem&>(*item)); });
}

CTreePeer::~CTreePeer()
{
    CQtWindowPeer::Close(); // the items are told of no more
}

bool CTreePeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CTreePeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {TVM_INSERTITEM, &CPeer::OnInsertItem},
        {TVM_DELETEITEM, &CPeer::OnDeleteItem},
        {TVM_GETITEM, &CPeer::OnGetItem},
        {TVM_SETITEM, &CPeer::OnSetItem},
        {TVM_GETCOUNT, &CPeer::OnGetCount},
        {TVM_GETNEXTITEM, &CPeer::OnGetNextItem},
        {TVM_SETIMAGELIST, &CPeer::OnSetImageList},
        {TVM_EXPAND, &CPeer::OnExpand},
        {TVM_SELECTITEM, &CPeer::OnSelectItem},
        {TVM_ENSUREVISIBLE, &CPeer::OnEnsureVisible},
        {TVM_GETITEMRECT, &CPeer::OnGetItemRect},
        {TVM_HITTEST, &CPeer::OnHitTest},
        {TVM_EDITLABEL, &CPeer::OnEditLabel},
        {WM_CREATE, &CPeer::OnCreate},
        {WM_DESTROY, &CPeer::OnDestroy},
        {WM_GETDLGCODE, &CPeer::OnGetDialogCode},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

LRESULT CTreePeer::OnCreate(WPARAM, LPARAM)
{
    TakeLabelBefore(*this);
    return 0;
}

/// Owners free what their items carry when they are told that these go.
LRESULT CTreePeer::OnDestroy(WPARAM, LPARAM)
{
    return OnDeleteItem(0, 0);
}

LRESULT CTreePeer::OnGetDialogCode(WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

CTreeItem* CTreePeer::FindSelected() const
{
    return static_cast<CTreeItem*>(Tree().currentItem());
}

LRESULT CTreePeer::OnExpand(WPARAM action, LPARAM item)
{
    CTreeItem* found = Find(reinterpret_cast<HTREEITEM>(item));
    if (!found || found->childCount() == 0)
        return FALSE;
    const bool isOpen = found->isExpanded();
    const bool open = action == TVE_TOGGLE ? !isOpen : action == TVE_EXPAND;
    found->setExpanded(open);
    return open != isOpen;
}

LRESULT CTreePeer::OnSelectItem(WPARAM relation, LPARAM item)
{
    const auto handle = reinterpret_cast<HTREEITEM>(item);
    CTreeItem* found = Find(handle);
    if (relation != TVGN_CARET || (handle && !found))
        return FALSE;
    if (found == FindSelected())
        return TRUE;
    if (!MaySelect(found, TVC_UNKNOWN) || !IsOpen())
        return FALSE;
    m_Action = TVC_UNKNOWN;
    Tree().setCurrentItem(Find(handle));
    return TRUE;
}

bool CTreePeer::MaySelect(CTreeItem* item, UINT action)
{
    m_Action = action;
    return TellItem(TVN_SELCHANGING, action, FindSelected(), item) == 0;
}

void CTreePeer::OnSelected(CTreeItem* before, CTreeItem* after)
{
    if (m_IsOwnChange)
        return;
    // An item on its way out has been forgotten.
    const bool isKnown = before && Find(before->m_Handle) == before;
    TellItem(TVN_SELCHANGED, std::exchange(m_Action, TVC_UNKNOWN), isKnown ? before : nullptr,
             after);
}

void CTreePeer::GoTo(CTreeItem& item)
{
    const HTREEITEM handle = item.m_Handle;
    if (MaySelect(&item, TVC_BYKEYBOARD) && IsOpen())
        Tree().setCurrentItem(Find(handle));
}

void CTreePeer::Open(CTreeItem& item, bool open)
{
    const HTREEITEM handle = item.m_Handle;
    const UINT action = open ? TVE_EXPAND : TVE_COLLAPSE;
    if (TellItem(TVN_ITEMEXPANDING, action, nullptr, &item) != 0 || !IsOpen())
        return;
    // Looked up anew: the parent may have changed the tree.
    if (CTreeItem* found = Find(handle))
    {
        found->setExpanded(open);
        TellItem(TVN_ITEMEXPANDED, action, nullptr, found);
    }
}

void CTreePeer::OnMark(CTreeItem& item)
{
    constexpr int STATES = 2; // a half mark becomes a whole one
    if (!(GetStyle() & TVS_CHECKBOXES) || item.m_Mark == 0)
        return;
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    item.m_Mark = item.m_Mark == STATES ? 1 : STATES;
    ShowMark(item);
    m_IsOwnChange = wasOwnChange;
    TellItem(TVN_ITEMCHANGED, 0, nullptr, &item);
}

LRESULT CTreePeer::OnEnsureVisible(WPARAM, LPARAM item)
{
    CTreeItem* found = Find(reinterpret_cast<HTREEITEM>(item));
    if (!found)
        return FALSE;
    Tree().scrollToItem(found); // opens what lies above
    return TRUE;
}

LRESULT CTreePeer::OnGetItemRect(WPARAM textOnly, LPARAM request)
{
    auto& answer = *reinterpret_cast<TVITEMRECT*>(request);
    const CTreeItem* found = Find(answer.hItem);
    const QRect row = found ? Tree().visualItemRect(found) : QRect();
    if (row.isEmpty())
        return FALSE;
    const QRect line(0, row.top(), Tree().viewport()->width(), row.height());
    answer.rect = ToRect(textOnly ? row : line);
    return TRUE;
}

LRESULT CTreePeer::OnHitTest(WPARAM, LPARAM test)
{
    auto& answer = *reinterpret_cast<TVHITTESTINFO*>(test);
    const auto& view = static_cast<CTreeView&>(Tree());
    const QPoint place = ToQPoint(answer.pt);
    auto* found = static_cast<CTreeItem*>(view.itemAt(place));
    answer.hItem = found ? found->m_Handle : nullptr;
    answer.flags = !found                         ? TVHT_NOWHERE
                   : view.IsOnMark(place)         ? TVHT_ONITEMSTATEICON
                   : view.IsOnItem(*found, place) ? TVHT_ONITEMLABEL
                                                  : TVHT_ONITEMRIGHT;
    return reinterpret_cast<LRESULT>(answer.hItem);
}

LRESULT CTreePeer::OnEditLabel(WPARAM, LPARAM item)
{
    CTreeItem* found = Find(reinterpret_cast<HTREEITEM>(item));
    if (!found || !(GetStyle() & TVS_EDITLABELS))
        return 0;
    Tree().setFocus();
    Tree().editItem(found);
    return TRUE;
}

bool CTreePeer::MayEditLabel(CTreeItem& item)
{
    NMTVDISPINFO note;
    note.hdr.code = TVN_BEGINLABELEDIT;
    note.item = Describe(&item);
    return NotifyParent(note.hdr) == 0 && IsOpen();
}

/// The widget has taken a new label; it stays only if the parent takes it too.
void CTreePeer::OnLabel(CTreeItem& item)
{
    if (m_IsOwnChange || item.text(0) == ToQString(item.m_Text))
        return;
    const CString text = ToCString(item.text(0));
    const HTREEITEM handle = item.m_Handle;
    NMTVDISPINFO note;
    note.hdr.code = TVN_ENDLABELEDIT;
    note.item = Describe(&item);
    note.item.pszText = text;
    const bool isTaken = NotifyParent(note.hdr) != 0;
    CTreeItem* found = IsOpen() ? Find(handle) : nullptr;
    if (!found)
        return;
    if (isTaken)
        found->m_Text = text;
    m_IsOwnChange = true;
    found->setText(0, ToQString(found->m_Text));
    m_IsOwnChange = false;
}

LRESULT CTreePeer::TellItem(int code, UINT action, CTreeItem* before, CTreeItem* after)
{
    if (!IsOpen())
        return 0;
    NMTREEVIEW note;
    note.hdr.code = code;
    note.action = action;
    note.itemOld = Describe(before);
    note.itemNew = Describe(after);
    return NotifyParent(note.hdr);
}

LRESULT CTreePeer::TellPlain(int code)
{
    if (!IsOpen())
        return 0;
    NMHDR note;
    note.code = code;
    return NotifyParent(note);
}

} // namespace utility
