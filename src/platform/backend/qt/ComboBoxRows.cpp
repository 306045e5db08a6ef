#include "platform/backend/qt/ComboBoxPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ComboBoxMessages.h"

#include <QLineEdit>

#include <algorithm>

namespace utility
{

namespace
{

CString ToText(LPARAM text)
{
    return reinterpret_cast<const char16_t*>(text);
}

} // namespace

CComboBoxPeer::CKeepField::CKeepField(CComboBoxPeer& peer)
    : m_Box(peer.Box()),
      m_HadRow(m_Box.currentIndex() >= 0),
      m_Text(m_Box.currentText())
{
}

CComboBoxPeer::CKeepField::~CKeepField()
{
    // The widget takes the first row that comes.
    if (!m_HadRow && m_Box.currentIndex() >= 0)
        m_Box.setCurrentIndex(-1);
    if (m_Box.isEditable() && m_Box.currentText() != m_Text)
        m_Box.lineEdit()->setText(m_Text);
}

LRESULT CComboBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    const CKeepField keep(*this);
    return m_Model.Add(ToText(text), (GetStyle() & CBS_SORT) != 0);
}

LRESULT CComboBoxPeer::OnInsertString(WPARAM row, LPARAM text)
{
    const CKeepField keep(*this);
    const auto number = static_cast<int>(row);
    if (!m_Model.Insert(number, ToText(text)))
        return CB_ERR;
    return number == -1 ? m_Model.GetCount() - 1 : number;
}

LRESULT CComboBoxPeer::OnDeleteString(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number) || m_Model.HasForeignRows())
        return CB_ERR;
    const CKeepField keep(*this);
    if (Box().currentIndex() == number)
        Box().setCurrentIndex(-1);
    m_Model.Delete(number);
    return m_Model.GetCount();
}

LRESULT CComboBoxPeer::OnResetContent(WPARAM, LPARAM)
{
    m_IsEdited = false;
    m_Model.Clear();
    Box().setCurrentIndex(-1);
    return 0;
}

LRESULT CComboBoxPeer::OnSetRows(WPARAM, LPARAM rows)
{
    const CKeepField keep(*this);
    m_Model.SetForeignRows(reinterpret_cast<const IComboRows*>(rows));
    Box().setCurrentIndex(-1);
    return 0;
}

LRESULT CComboBoxPeer::OnGetCount(WPARAM, LPARAM)
{
    return m_Model.GetCount();
}

LRESULT CComboBoxPeer::OnGetText(WPARAM row, LPARAM buffer)
{
    if (!m_Model.Has(static_cast<int>(row)))
        return CB_ERR;
    const CString text = m_Model.GetText(static_cast<int>(row));
    std::copy_n(text.GetString(), text.GetLength() + 1, reinterpret_cast<char16_t*>(buffer));
    return text.GetLength();
}

LRESULT CComboBoxPeer::OnGetTextLen(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) ? m_Model.GetText(number).GetLength() : CB_ERR;
}

LRESULT CComboBoxPeer::OnGetItemData(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) ? m_Model.GetData(number) : CB_ERR;
}

LRESULT CComboBoxPeer::OnSetItemData(WPARAM row, LPARAM data)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number) || m_Model.HasForeignRows())
        return CB_ERR;
    m_Model.SetData(number, data);
    return 0;
}

LRESULT CComboBoxPeer::OnFindString(WPARAM after, LPARAM text)
{
    return m_Model.Find(static_cast<int>(after), ToText(text), false);
}

LRESULT CComboBoxPeer::OnFindStringExact(WPARAM after, LPARAM text)
{
    return m_Model.Find(static_cast<int>(after), ToText(text), true);
}

LRESULT CComboBoxPeer::OnSelectString(WPARAM after, LPARAM text)
{
    const int row = m_Model.Find(static_cast<int>(after), ToText(text), false);
    return row < 0 ? CB_ERR : OnSetCurSel(static_cast<WPARAM>(row), 0);
}

} // namespace utility
