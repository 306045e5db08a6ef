#include "platform/backend/qt/ListBoxPeer.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ListBoxMessages.h"

#include <utility>

namespace utility
{

LRESULT CListBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    return m_Model.Add(reinterpret_cast<const char16_t*>(text), (GetStyle() & LBS_SORT) != 0);
}

LRESULT CListBoxPeer::OnInsertString(WPARAM row, LPARAM text)
{
    return m_Model.AnswerInsert(row, text);
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

} // namespace utility
