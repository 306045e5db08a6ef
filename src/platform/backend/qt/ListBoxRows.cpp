#include "platform/backend/qt/ListBoxPeer.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ListBoxMessages.h"

#include <algorithm>
#include <utility>

namespace utility
{

namespace
{

CString ToText(LPARAM text)
{
    return reinterpret_cast<const char16_t*>(text);
}

} // namespace

LRESULT CListBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    return m_Model.Add(ToText(text), (GetStyle() & LBS_SORT) != 0);
}

LRESULT CListBoxPeer::OnInsertString(WPARAM row, LPARAM text)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Insert(number, ToText(text)))
        return LB_ERR;
    return number == -1 ? m_Model.GetCount() - 1 : number;
}

LRESULT CListBoxPeer::OnDeleteString(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    // Else the view would select the row behind.
    if (View().currentIndex().row() == number)
        View().selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    m_Model.Delete(number);
    m_IsOwnChange = wasOwnChange;
    return m_Model.GetCount();
}

LRESULT CListBoxPeer::OnResetContent(WPARAM, LPARAM)
{
    m_Model.Clear();
    return 0;
}

LRESULT CListBoxPeer::OnGetCount(WPARAM, LPARAM)
{
    return m_Model.GetCount();
}

LRESULT CListBoxPeer::OnGetText(WPARAM row, LPARAM buffer)
{
    if (!m_Model.Has(static_cast<int>(row)))
        return LB_ERR;
    const CString text = m_Model.GetText(static_cast<int>(row));
    std::copy_n(text.GetString(), text.GetLength() + 1, reinterpret_cast<char16_t*>(buffer));
    return text.GetLength();
}

LRESULT CListBoxPeer::OnGetTextLen(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) ? m_Model.GetText(number).GetLength() : LB_ERR;
}

LRESULT CListBoxPeer::OnGetItemData(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) ? m_Model.GetData(number) : LB_ERR;
}

LRESULT CListBoxPeer::OnSetItemData(WPARAM row, LPARAM data)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    m_Model.SetData(number, data);
    return 0;
}

LRESULT CListBoxPeer::OnFindString(WPARAM after, LPARAM text)
{
    return m_Model.Find(static_cast<int>(after), ToText(text), false);
}

LRESULT CListBoxPeer::OnFindStringExact(WPARAM after, LPARAM text)
{
    return m_Model.Find(static_cast<int>(after), ToText(text), true);
}

LRESULT CListBoxPeer::OnSelectString(WPARAM after, LPARAM text)
{
    const int row = m_Model.Find(static_cast<int>(after), ToText(text), false);
    return row < 0 ? LB_ERR : OnSetCurSel(static_cast<WPARAM>(row), 0);
}

} // namespace utility
