#include "platform/backend/qt/ListBoxPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/KeyCodes.h"
#include "platform/backend/qt/ListDelegate.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/backend/qt/StaticPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/CheckListBox.h"
#include "platform/ui/controls/ListBoxMessages.h"

#include <QKeyEvent>

#include <algorithm>

namespace utility
{

namespace
{

/// Shows its keys to the peer first.
class CRowView final : public QListView
{
public:
    CRowView(QWidget* parent) : QListView(parent) {}

    CListBoxPeer* m_Peer = nullptr;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!m_Peer->OnKey(*event))
            QListView::keyPressEvent(event);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        const QPoint place = event->position().toPoint();
        const QModelIndex index = indexAt(place);
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        option.rect = visualRect(index);
        const auto* delegate = static_cast<CListDelegate*>(itemDelegate());
        const bool isOnMark = index.isValid() && delegate->IsOnMark(option, index, place);
        QListView::mouseDoubleClickEvent(event);
        if (index.isValid() && event->button() == Qt::LeftButton)
            m_Peer->OnDoubleClick(index.row(), isOnMark);
    }
};

QAbstractItemView::SelectionMode ToMode(DWORD style)
{
    if (style & LBS_NOSEL)
        return QAbstractItemView::NoSelection;
    if (style & LBS_EXTENDEDSEL)
        return QAbstractItemView::ExtendedSelection;
    return style & LBS_MULTIPLESEL ? QAbstractItemView::MultiSelection
                                   : QAbstractItemView::SingleSelection;
}

} // namespace

std::unique_ptr<CQtWindowPeer> MakeListBoxPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CListBoxPeer>(request, parent);
}

CListBoxPeer::CListBoxPeer(const CWindowRequest& request, QWidget* parent)
    : CRowsPeer(request, new CRowView(parent)),
      m_Delegate(new CListDelegate(*this, m_Model, ODT_LISTBOX, &Widget()))
{
    QListView& view = View();
    static_cast<CRowView&>(view).m_Peer = this;
    view.setModel(&m_Model);
    view.setItemDelegate(m_Delegate);
    view.setSelectionMode(ToMode(request.m_Style));
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setUniformItemSizes(!(request.m_Style & LBS_OWNERDRAWVARIABLE));
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (!(request.m_Style & WS_BORDER))
        view.setFrameShape(QFrame::NoFrame);
    Bridge().Watch(*view.viewport());

    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &Bridge(),
                     [this]
                     {
                         if (!m_IsOwnChange)
                             Tell(LBN_SELCHANGE);
                     });
}

CListBoxPeer::~CListBoxPeer()
{
    CQtWindowPeer::Close(); // the model goes before the widget
}

bool CListBoxPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CListBoxPeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {LB_ADDSTRING, &CPeer::OnAddString},
        {LB_INSERTSTRING, &CPeer::OnInsertString},
        {LB_DELETESTRING, &CPeer::OnDeleteString},
        {LB_RESETCONTENT, &CPeer::OnResetContent},
        {LB_GETCOUNT, &CPeer::OnGetCount},
        {LB_GETTEXT, &CPeer::OnGetText},
        {LB_GETTEXTLEN, &CPeer::OnGetTextLen},
        {LB_GETITEMDATA, &CPeer::OnGetItemData},
        {LB_SETITEMDATA, &CPeer::OnSetItemData},
        {LB_FINDSTRING, &CPeer::OnFindString},
        {LB_FINDSTRINGEXACT, &CPeer::OnFindStringExact},
        {LB_SELECTSTRING, &CPeer::OnSelectString},
        {LB_GETCURSEL, &CPeer::OnGetCurSel},
        {LB_SETCURSEL, &CPeer::OnSetCurSel},
        {LB_GETSEL, &CPeer::OnGetSel},
        {LB_SETSEL, &CPeer::OnSetSel},
        {LB_GETSELCOUNT, &CPeer::OnGetSelCount},
        {LB_GETSELITEMS, &CPeer::OnGetSelItems},
        {LB_GETCARETINDEX, &CPeer::OnGetCaretIndex},
        {LB_SETCARETINDEX, &CPeer::OnSetCaretIndex},
        {LB_GETTOPINDEX, &CPeer::OnGetTopIndex},
        {LB_SETTOPINDEX, &CPeer::OnSetTopIndex},
        {LB_SETTABSTOPS, &CPeer::OnSetTabStops},
        {LB_GETHORIZONTALEXTENT, &CPeer::OnGetHorizontalExtent},
        {LB_SETHORIZONTALEXTENT, &CPeer::OnSetHorizontalExtent},
        {LB_GETITEMHEIGHT, &CPeer::OnGetItemHeight},
        {LB_SETITEMHEIGHT, &CPeer::OnSetItemHeight},
        {LB_GETITEMRECT, &CPeer::OnGetItemRect},
        {CLB_GETCHECKSTYLE, &CPeer::OnGetCheckStyle},
        {CLB_SETCHECKSTYLE, &CPeer::OnSetCheckStyle},
        {CLB_GETCHECK, &CPeer::OnGetCheck},
        {CLB_SETCHECK, &CPeer::OnSetCheck},
        {CLB_ISENABLED, &CPeer::OnIsEnabled},
        {CLB_ENABLE, &CPeer::OnEnable},
        {CLB_SETSELECTIONCHECK, &CPeer::OnSetSelectionCheck},
        {WM_CREATE, &CPeer::OnCreate},
        {WM_SETFOCUS, &CPeer::OnSetFocus},
        {WM_KILLFOCUS, &CPeer::OnKillFocus},
        {WM_GETDLGCODE, &CPeer::OnGetDialogCode},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

LRESULT CListBoxPeer::OnCreate(WPARAM, LPARAM)
{
    TakeLabelBefore(*this);
    return 0;
}

bool CListBoxPeer::OnKey(const QKeyEvent& event)
{
    constexpr int NOTHING_MORE = -2;
    const int caret = View().currentIndex().row();
    if (GetStyle() & LBS_WANTKEYBOARDINPUT)
    {
        const UINT key = VirtualKeyOf(event.key());
        const auto answer =
            static_cast<int>(Send(WM_VKEYTOITEM, MAKEWPARAM(static_cast<int>(key), caret),
                                  reinterpret_cast<LPARAM>(GetHandle())));
        if (!IsOpen() || answer == NOTHING_MORE)
            return true;
        if (answer >= 0)
        {
            GoTo(answer);
            return true;
        }
    }
    if (m_CheckStyle != 0 && event.key() == Qt::Key_Space && caret >= 0)
    {
        ToggleMark(caret);
        return true;
    }
    return false;
}

void CListBoxPeer::OnDoubleClick(int row, bool isOnMark)
{
    // The mark has its own clicks.
    if (m_CheckStyle != 0 && !isOnMark)
        ToggleMark(row);
    if (IsOpen())
        Tell(LBN_DBLCLK);
}

/// As if the user had gone to that row.
void CListBoxPeer::GoTo(int row)
{
    if (m_Model.Has(row))
        View().setCurrentIndex(m_Model.index(row));
}

void CListBoxPeer::Tell(UINT code) const
{
    if (GetStyle() & LBS_NOTIFY)
        NotifyParent(static_cast<int>(code));
}

LRESULT CListBoxPeer::OnSetFocus(WPARAM, LPARAM)
{
    Tell(LBN_SETFOCUS);
    return 0;
}

LRESULT CListBoxPeer::OnKillFocus(WPARAM, LPARAM)
{
    Tell(LBN_KILLFOCUS);
    return 0;
}

LRESULT CListBoxPeer::OnGetTopIndex(WPARAM, LPARAM)
{
    return std::max(0, View().indexAt(QPoint(0, 0)).row());
}

LRESULT CListBoxPeer::OnSetTopIndex(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    View().scrollTo(m_Model.index(number), QAbstractItemView::PositionAtTop);
    return 0;
}

LRESULT CListBoxPeer::OnSetTabStops(WPARAM count, LPARAM stops)
{
    // Stops are given in quarters of a mean character; without any, one stands at 32.
    constexpr int QUARTERS = 4;
    static constexpr int USUAL[] = {32};
    const int* first = count == 0 ? USUAL : reinterpret_cast<const int*>(stops);
    const int width = View().fontMetrics().averageCharWidth();
    std::vector<int> pixels;
    for (std::size_t i = 0; i < std::max<std::size_t>(count, 1); ++i)
        pixels.push_back(first[i] * width / QUARTERS);
    m_Delegate->SetTabStops(std::move(pixels));
    View().viewport()->update();
    return TRUE;
}

LRESULT CListBoxPeer::OnGetHorizontalExtent(WPARAM, LPARAM)
{
    return m_Extent;
}

LRESULT CListBoxPeer::OnSetHorizontalExtent(WPARAM width, LPARAM)
{
    m_Extent = std::max(0, static_cast<int>(width));
    m_Delegate->SetExtent(m_Extent);
    View().setHorizontalScrollBarPolicy(m_Extent > 0 ? Qt::ScrollBarAsNeeded
                                                     : Qt::ScrollBarAlwaysOff);
    View().doItemsLayout();
    return 0;
}

LRESULT CListBoxPeer::OnGetItemHeight(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    const bool isEach = GetStyle() & LBS_OWNERDRAWVARIABLE;
    if (isEach && m_Model.Has(number) && m_Model.GetRow(number).m_Height > 0)
        return m_Model.GetRow(number).m_Height;
    return m_Model.GetCount() > 0 ? View().sizeHintForIndex(m_Model.index(0)).height()
                                  : m_Delegate->GetHeight(View());
}

LRESULT CListBoxPeer::OnSetItemHeight(WPARAM row, LPARAM height)
{
    if (height < 1)
        return LB_ERR;
    if (!(GetStyle() & LBS_OWNERDRAWVARIABLE))
        m_Delegate->SetHeight(static_cast<int>(height));
    else if (m_Model.Has(static_cast<int>(row)))
        m_Model.SetHeight(static_cast<int>(row), static_cast<int>(height));
    else
        return LB_ERR;
    View().doItemsLayout();
    return 0;
}

LRESULT CListBoxPeer::OnGetItemRect(WPARAM row, LPARAM rect)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    *reinterpret_cast<CRect*>(rect) = ToRect(View().visualRect(m_Model.index(number)));
    return 0;
}

} // namespace utility
