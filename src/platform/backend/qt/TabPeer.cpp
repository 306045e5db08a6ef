#include "platform/backend/qt/TabPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/TabCtrl.h"

#include <QStyleOption>
#include <QStylePainter>
#include <QTabBar>

#include <utility>

namespace utility
{

namespace
{

/// The bar along one edge, and the frame of the page that it belongs to.
class CTabFrame final : public QWidget
{
public:
    CTabFrame(bool isBelow, QWidget* parent) : QWidget(parent), m_Bar(this), m_IsBelow(isBelow)
    {
        m_Bar.setDrawBase(false);
        m_Bar.setShape(isBelow ? QTabBar::RoundedSouth : QTabBar::RoundedNorth);
        m_Bar.setExpanding(false);
        setFocusProxy(&m_Bar);
    }

    QTabBar& GetBar() { return m_Bar; }
    /// The page's frame, without the bar.
    QRect GetFrame() const
    {
        const int bar = m_Bar.sizeHint().height();
        return m_IsBelow ? rect().adjusted(0, 0, 0, -bar) : rect().adjusted(0, bar, 0, 0);
    }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        const int bar = m_Bar.sizeHint().height();
        m_Bar.setGeometry(0, m_IsBelow ? height() - bar : 0, width(), bar);
    }
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        QStyleOptionTabWidgetFrame option;
        option.initFrom(this);
        option.rect = GetFrame();
        option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        option.shape = m_Bar.shape();
        option.tabBarSize = m_Bar.sizeHint();
        painter.drawPrimitive(QStyle::PE_FrameTabWidget, option);
    }

private:
    QTabBar m_Bar;
    bool m_IsBelow;
};

} // namespace

std::unique_ptr<CQtWindowPeer> MakeTabPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CTabPeer>(request, parent);
}

CTabPeer::CTabPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, new CTabFrame((request.m_Style & TCS_BOTTOM) != 0, parent)),
      m_Bar(&static_cast<CTabFrame&>(Widget()).GetBar())
{
    Bridge().Watch(*m_Bar);
    QObject::connect(m_Bar, &QTabBar::currentChanged, &Bridge(),
                     [this](int tab)
                     {
                         if (!m_IsOwnChange && IsOpen())
                             OnUserChange(tab);
                     });
}

CTabPeer::~CTabPeer()
{
    CQtWindowPeer::Close();
}

bool CTabPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CTabPeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {TCM_INSERTITEM, &CPeer::OnInsertItem},
        {TCM_DELETEITEM, &CPeer::OnDeleteItem},
        {TCM_DELETEALLITEMS, &CPeer::OnDeleteAllItems},
        {TCM_GETITEMCOUNT, &CPeer::OnGetItemCount},
        {TCM_GETITEM, &CPeer::OnGetItem},
        {TCM_SETITEM, &CPeer::OnSetItem},
        {TCM_GETCURSEL, &CPeer::OnGetCurSel},
        {TCM_SETCURSEL, &CPeer::OnSetCurSel},
        {TCM_ADJUSTRECT, &CPeer::OnAdjustRect},
        {WM_GETDLGCODE, &CPeer::OnGetDialogCode},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

void CTabPeer::TakeFocus()
{
    m_Bar->setFocus(Qt::OtherFocusReason);
}

void CTabPeer::GoTo(int tab)
{
    m_IsOwnChange = true;
    m_Bar->setCurrentIndex(tab);
    m_Current = m_Bar->currentIndex();
    m_IsOwnChange = false;
}

/// The bar has changed already; a parent that says no has it back.
void CTabPeer::OnUserChange(int tab)
{
    NMHDR changing;
    changing.code = TCN_SELCHANGING;
    if (NotifyParent(changing) != 0)
    {
        if (IsOpen())
            GoTo(m_Current);
        return;
    }
    if (!IsOpen() || !Has(tab))
        return;
    m_Current = tab;
    NMHDR changed;
    changed.code = TCN_SELCHANGE;
    NotifyParent(changed);
}

LRESULT CTabPeer::OnInsertItem(WPARAM tab, LPARAM item)
{
    const auto& request = *reinterpret_cast<const TCITEM*>(item);
    const int count = static_cast<int>(m_Tabs.size());
    const int place = Has(static_cast<int>(tab)) ? static_cast<int>(tab) : count;
    CTab added;
    if (request.mask & TCIF_TEXT)
        added.m_Text = request.pszText;
    if (request.mask & TCIF_PARAM)
        added.m_Data = request.lParam;
    m_IsOwnChange = true;
    m_Bar->insertTab(place, ToQString(added.m_Text));
    m_IsOwnChange = false;
    m_Tabs.insert(m_Tabs.begin() + place, std::move(added));
    m_Current = m_Bar->currentIndex();
    return place;
}

LRESULT CTabPeer::OnDeleteItem(WPARAM tab, LPARAM)
{
    const auto place = static_cast<int>(tab);
    if (!Has(place))
        return FALSE;
    m_Tabs.erase(m_Tabs.begin() + place);
    m_IsOwnChange = true;
    m_Bar->removeTab(place);
    m_IsOwnChange = false;
    m_Current = m_Bar->currentIndex();
    return TRUE;
}

LRESULT CTabPeer::OnDeleteAllItems(WPARAM, LPARAM)
{
    while (!m_Tabs.empty())
        OnDeleteItem(m_Tabs.size() - 1, 0);
    return TRUE;
}

LRESULT CTabPeer::OnGetItemCount(WPARAM, LPARAM)
{
    return static_cast<LRESULT>(m_Tabs.size());
}

LRESULT CTabPeer::OnGetItem(WPARAM tab, LPARAM item)
{
    if (!Has(static_cast<int>(tab)))
        return FALSE;
    auto& request = *reinterpret_cast<TCITEM*>(item);
    if (request.mask & TCIF_TEXT)
        request.pszText = m_Tabs[tab].m_Text;
    if (request.mask & TCIF_PARAM)
        request.lParam = m_Tabs[tab].m_Data;
    return TRUE;
}

LRESULT CTabPeer::OnSetItem(WPARAM tab, LPARAM item)
{
    if (!Has(static_cast<int>(tab)))
        return FALSE;
    const auto& request = *reinterpret_cast<const TCITEM*>(item);
    if (request.mask & TCIF_TEXT)
    {
        m_Tabs[tab].m_Text = request.pszText;
        m_Bar->setTabText(static_cast<int>(tab), ToQString(m_Tabs[tab].m_Text));
    }
    if (request.mask & TCIF_PARAM)
        m_Tabs[tab].m_Data = request.lParam;
    return TRUE;
}

LRESULT CTabPeer::OnGetCurSel(WPARAM, LPARAM)
{
    return m_Current;
}

LRESULT CTabPeer::OnSetCurSel(WPARAM tab, LPARAM)
{
    const int before = m_Current;
    if (!Has(static_cast<int>(tab)))
        return -1;
    GoTo(static_cast<int>(tab));
    return before;
}

LRESULT CTabPeer::OnAdjustRect(WPARAM larger, LPARAM rect)
{
    constexpr int BORDER = 4; // of the page within its frame
    auto& place = *reinterpret_cast<CRect*>(rect);
    const int bar = m_Bar->sizeHint().height();
    const bool isBelow = GetStyle() & TCS_BOTTOM;
    const int top = BORDER + (isBelow ? 0 : bar);
    const int bottom = BORDER + (isBelow ? bar : 0);
    if (larger)
        place.InflateRect(BORDER, top, BORDER, bottom);
    else
        place.DeflateRect(BORDER, top, BORDER, bottom);
    return 0;
}

LRESULT CTabPeer::OnGetDialogCode(WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

} // namespace utility
