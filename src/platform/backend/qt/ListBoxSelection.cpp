#include "platform/backend/qt/ListBoxPeer.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ListBoxMessages.h"

#include <algorithm>
#include <utility>

namespace utility
{

bool CListBoxPeer::HasManySelected() const
{
    return (GetStyle() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

int CListBoxPeer::GetSelectedRow() const
{
    const QModelIndexList rows = View().selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void CListBoxPeer::Select(int row, bool select)
{
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    View().selectionModel()->setCurrentIndex(
        m_Model.index(row), select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
    m_IsOwnChange = wasOwnChange;
}

LRESULT CListBoxPeer::OnGetCurSel(WPARAM, LPARAM)
{
    return HasManySelected() ? View().currentIndex().row() : GetSelectedRow();
}

LRESULT CListBoxPeer::OnSetCurSel(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (HasManySelected())
        return LB_ERR;
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    View().clearSelection();
    m_IsOwnChange = wasOwnChange;
    if (!m_Model.Has(number))
        return LB_ERR;
    Select(number, true);
    View().scrollTo(m_Model.index(number));
    return number;
}

LRESULT CListBoxPeer::OnGetSel(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    return View().selectionModel()->isSelected(m_Model.index(number));
}

LRESULT CListBoxPeer::OnSetSel(WPARAM select, LPARAM row)
{
    constexpr int EVERY_ROW = -1;
    const auto number = static_cast<int>(row);
    if (!HasManySelected() || (number != EVERY_ROW && !m_Model.Has(number)))
        return LB_ERR;
    if (number != EVERY_ROW)
    {
        Select(number, select != 0);
        return 0;
    }
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    if (select)
        View().selectAll();
    else
        View().clearSelection();
    m_IsOwnChange = wasOwnChange;
    return 0;
}

LRESULT CListBoxPeer::OnGetSelCount(WPARAM, LPARAM)
{
    return HasManySelected() ? View().selectionModel()->selectedIndexes().size() : LB_ERR;
}

LRESULT CListBoxPeer::OnGetSelItems(WPARAM room, LPARAM rows)
{
    if (!HasManySelected())
        return LB_ERR;
    std::vector<int> selected;
    for (const QModelIndex& index : View().selectionModel()->selectedIndexes())
        selected.push_back(index.row());
    std::sort(selected.begin(), selected.end());
    const std::size_t count = std::min<std::size_t>(room, selected.size());
    std::copy_n(selected.begin(), count, reinterpret_cast<int*>(rows));
    return static_cast<LRESULT>(count);
}

LRESULT CListBoxPeer::OnGetCaretIndex(WPARAM, LPARAM)
{
    return View().currentIndex().row();
}

LRESULT CListBoxPeer::OnSetCaretIndex(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    View().selectionModel()->setCurrentIndex(m_Model.index(number), QItemSelectionModel::NoUpdate);
    View().scrollTo(m_Model.index(number));
    return 0;
}

} // namespace utility
