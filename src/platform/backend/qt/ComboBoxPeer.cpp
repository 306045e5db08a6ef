#include "platform/backend/qt/ComboBoxPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/ListDelegate.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/backend/qt/StaticPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/ComboBoxMessages.h"
#include "platform/ui/controls/ComboRows.h"

#include <QLineEdit>
#include <QListView>
#include <QStylePainter>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <utility>

namespace utility
{

namespace
{

constexpr int MOST_VISIBLE_ROWS = 30;

/// Tells when its list opens and closes, and lets the owner paint the field.
class CRowCombo final : public QComboBox
{
public:
    CRowCombo(QWidget* parent) : QComboBox(parent) {}

    CComboBoxPeer* m_Peer = nullptr;

    void showPopup() override
    {
        m_Peer->OnOpening();
        if (m_Peer->IsOpen())
            QComboBox::showPopup();
    }
    void hidePopup() override
    {
        QComboBox::hidePopup();
        m_Peer->OnClosed();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (isEditable() || !m_Peer->IsFieldOwnerDrawn())
            return QComboBox::paintEvent(event);
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        option.currentText.clear();
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, this);
        m_Peer->PaintField(painter, field);
    }
};

} // namespace

std::unique_ptr<CQtWindowPeer> MakeComboBoxPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CComboBoxPeer>(request, parent);
}

CComboBoxPeer::CComboBoxPeer(const CWindowRequest& request, QWidget* parent)
    : CRowsPeer(request, new CRowCombo(parent)),
      m_Delegate(new CListDelegate(*this, m_Model, ODT_COMBOBOX, &Widget()))
{
    QComboBox& box = Box();
    static_cast<CRowCombo&>(box).m_Peer = this;
    auto* list = new QListView(&box);
    list->setUniformItemSizes(!(request.m_Style & CBS_OWNERDRAWVARIABLE));
    box.setView(list);
    box.setModel(&m_Model);
    box.setItemDelegate(m_Delegate);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setMaxVisibleItems(MOST_VISIBLE_ROWS);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.setDuplicatesEnabled(true); // Enter looks for no row
    if ((request.m_Style & CBS_TYPEMASK) != CBS_DROPDOWNLIST)
    {
        box.setEditable(true);
        box.setCompleter(nullptr);
        Bridge().Watch(*box.lineEdit());
        QObject::connect(box.lineEdit(), &QLineEdit::textEdited, &Bridge(), [this] { OnEdited(); });
    }
    box.setCurrentIndex(-1);
    QObject::connect(&box, &QComboBox::activated, &Bridge(), [this](int row) { OnTaken(row); });
}

CComboBoxPeer::~CComboBoxPeer()
{
    CQtWindowPeer::Close(); // the model goes before the widget
}

bool CComboBoxPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CComboBoxPeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {CB_ADDSTRING, &CPeer::OnAddString},
        {CB_INSERTSTRING, &CPeer::OnInsertString},
        {CB_DELETESTRING, &CPeer::OnDeleteString},
        {CB_RESETCONTENT, &CPeer::OnResetContent},
        {CB_SETROWS, &CPeer::OnSetRows},
        {CB_GETCOUNT, &CPeer::OnGetCount},
        {CB_GETLBTEXT, &CPeer::OnGetText},
        {CB_GETLBTEXTLEN, &CPeer::OnGetTextLen},
        {CB_GETITEMDATA, &CPeer::OnGetItemData},
        {CB_SETITEMDATA, &CPeer::OnSetItemData},
        {CB_FINDSTRING, &CPeer::OnFindString},
        {CB_FINDSTRINGEXACT, &CPeer::OnFindStringExact},
        {CB_SELECTSTRING, &CPeer::OnSelectString},
        {CB_GETCURSEL, &CPeer::OnGetCurSel},
        {CB_SETCURSEL, &CPeer::OnSetCurSel},
        {CB_GETEDITSEL, &CPeer::OnGetEditSel},
        {CB_SETEDITSEL, &CPeer::OnSetEditSel},
        {CB_LIMITTEXT, &CPeer::OnLimitText},
        {CB_SHOWDROPDOWN, &CPeer::OnShowDropDown},
        {CB_GETDROPPEDSTATE, &CPeer::OnGetDroppedState},
        {CB_GETDROPPEDWIDTH, &CPeer::OnGetDroppedWidth},
        {CB_SETDROPPEDWIDTH, &CPeer::OnSetDroppedWidth},
        {CB_GETITEMHEIGHT, &CPeer::OnGetItemHeight},
        {CB_SETITEMHEIGHT, &CPeer::OnSetItemHeight},
        {WM_CREATE, &CPeer::OnCreate},
        {WM_SETFOCUS, &CPeer::OnSetFocus},
        {WM_KILLFOCUS, &CPeer::OnKillFocus},
        {WM_GETDLGCODE, &CPeer::OnGetDialogCode},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

LRESULT CComboBoxPeer::OnCreate(WPARAM, LPARAM)
{
    TakeLabelBefore(*this);
    if (const CRect place = GetPlace(); !place.IsRectEmpty())
        Move(place); // down to the field
    return 0;
}

void CComboBoxPeer::SetText(const CString& text)
{
    if (!HasField())
        return; // rows alone can be shown
    m_IsEdited = true;
    Box().lineEdit()->setText(ToQString(text));
}

CString CComboBoxPeer::GetText() const
{
    return ToCString(Box().currentText());
}

/// The height asked for is that of field and open list.
void CComboBoxPeer::Move(const CRect& place)
{
    const int height = m_FieldHeight > 0 ? m_FieldHeight : Box().sizeHint().height();
    CRect field = place;
    field.bottom = field.top + height;
    const int row = std::max(1, m_Delegate->GetHeight(*Box().view()));
    const int rows = (place.Height() - height) / row;
    if (rows > 0)
        Box().setMaxVisibleItems(std::min(rows, MOST_VISIBLE_ROWS));
    CQtWindowPeer::Move(field);
}

void CComboBoxPeer::OnOpening()
{
    m_IsListOpen = true;
    Tell(CBN_DROPDOWN);
    if (IsOpen() && m_DroppedWidth > 0)
        Box().view()->setMinimumWidth(std::max(m_DroppedWidth, Box().width()));
}

/// Whether a row was taken is told just after the list has closed.
void CComboBoxPeer::OnClosed()
{
    if (!std::exchange(m_IsListOpen, false))
        return;
    m_IsClosing = true;
    QTimer::singleShot(0, &Bridge(), [this] { TellClosed(CBN_SELENDCANCEL); });
}

void CComboBoxPeer::TellClosed(UINT code)
{
    if (!std::exchange(m_IsClosing, false))
        return;
    Tell(code);
    if (IsOpen())
        Tell(CBN_CLOSEUP);
}

void CComboBoxPeer::OnTaken(int)
{
    m_IsEdited = false;
    if (m_IsClosing)
        TellClosed(CBN_SELENDOK);
    else
        Tell(CBN_SELENDOK);
    if (IsOpen())
        Tell(CBN_SELCHANGE);
}

void CComboBoxPeer::OnEdited()
{
    m_IsEdited = true;
    Tell(CBN_EDITCHANGE);
}

bool CComboBoxPeer::IsFieldOwnerDrawn() const
{
    return (GetStyle() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
}

void CComboBoxPeer::PaintField(QPainter& painter, const QRect& place) const
{
    const int row = Box().currentIndex();
    const bool isEnabled = Box().isEnabled();
    const UINT state =
        ODS_COMBOBOXEDIT | (isEnabled ? 0 : ODS_DISABLED) | (Box().hasFocus() ? ODS_FOCUS : 0);
    DrawRowByOwner(*this, ODT_COMBOBOX, static_cast<unsigned>(row), state,
                   m_Model.Has(row) ? m_Model.GetData(row) : 0, place, painter);
}

void CComboBoxPeer::Tell(UINT code) const
{
    NotifyParent(static_cast<int>(code));
}

LRESULT CComboBoxPeer::OnGetCurSel(WPARAM, LPARAM)
{
    return m_IsEdited ? CB_ERR : Box().currentIndex();
}

LRESULT CComboBoxPeer::OnSetCurSel(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    m_IsEdited = false;
    Box().setCurrentIndex(m_Model.Has(number) ? number : -1);
    if (HasField() && m_Model.Has(number))
        Box().lineEdit()->setText(ToQString(m_Model.GetText(number)));
    else if (HasField())
        Box().lineEdit()->clear();
    return m_Model.Has(number) ? number : CB_ERR;
}

LRESULT CComboBoxPeer::OnGetEditSel(WPARAM first, LPARAM last)
{
    if (!HasField())
        return CB_ERR;
    const QLineEdit& field = *Box().lineEdit();
    const bool hasSelection = field.hasSelectedText();
    const int from = hasSelection ? field.selectionStart() : field.cursorPosition();
    const int to = hasSelection ? field.selectionEnd() : from;
    if (auto* target = reinterpret_cast<DWORD*>(first))
        *target = static_cast<DWORD>(from);
    if (auto* target = reinterpret_cast<DWORD*>(last))
        *target = static_cast<DWORD>(to);
    return MAKELPARAM(from, to);
}

LRESULT CComboBoxPeer::OnSetEditSel(WPARAM, LPARAM range)
{
    if (!HasField())
        return CB_ERR;
    QLineEdit& field = *Box().lineEdit();
    const int length = static_cast<int>(field.text().size());
    const int first = GET_X_LPARAM(range);
    const int last = GET_Y_LPARAM(range) < 0 ? length : GET_Y_LPARAM(range);
    if (first < 0)
        field.deselect();
    else
        field.setSelection(std::min(first, length), std::min(last, length) - first);
    return TRUE;
}

LRESULT CComboBoxPeer::OnLimitText(WPARAM limit, LPARAM)
{
    if (!HasField())
        return CB_ERR;
    Box().lineEdit()->setMaxLength(limit == 0 ? std::numeric_limits<int>::max()
                                              : static_cast<int>(limit));
    return TRUE;
}

LRESULT CComboBoxPeer::OnShowDropDown(WPARAM show, LPARAM)
{
    if (show)
    {
        Box().showPopup();
        return TRUE;
    }
    Box().hidePopup();
    TellClosed(CBN_SELENDCANCEL);
    return TRUE;
}

LRESULT CComboBoxPeer::OnGetDroppedState(WPARAM, LPARAM)
{
    return m_IsListOpen;
}

LRESULT CComboBoxPeer::OnGetDroppedWidth(WPARAM, LPARAM)
{
    return std::max(m_DroppedWidth, Box().width());
}

LRESULT CComboBoxPeer::OnSetDroppedWidth(WPARAM width, LPARAM)
{
    m_DroppedWidth = std::max(0, static_cast<int>(width));
    return OnGetDroppedWidth(0, 0);
}

LRESULT CComboBoxPeer::OnGetItemHeight(WPARAM row, LPARAM)
{
    return static_cast<int>(row) == -1 ? Box().height() : m_Delegate->GetHeight(*Box().view());
}

LRESULT CComboBoxPeer::OnSetItemHeight(WPARAM row, LPARAM height)
{
    if (height < 1)
        return CB_ERR;
    if (static_cast<int>(row) != -1)
    {
        m_Delegate->SetHeight(static_cast<int>(height));
        return 0;
    }
    m_FieldHeight = static_cast<int>(height);
    CRect place = GetPlace();
    place.bottom = place.top + m_FieldHeight;
    CQtWindowPeer::Move(place);
    return 0;
}

LRESULT CComboBoxPeer::OnSetFocus(WPARAM, LPARAM)
{
    Tell(CBN_SETFOCUS);
    return 0;
}

LRESULT CComboBoxPeer::OnKillFocus(WPARAM, LPARAM)
{
    Tell(CBN_KILLFOCUS);
    return 0;
}

} // namespace utility
