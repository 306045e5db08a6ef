#include "platform/backend/qt/ListBoxPeer.h"
#include "platform/backend/qt/ListDelegate.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/CheckListBox.h"
#include "platform/ui/controls/ListBoxMessages.h"

namespace utility
{

LRESULT CListBoxPeer::OnGetCheckStyle(WPARAM, LPARAM)
{
    return m_CheckStyle;
}

LRESULT CListBoxPeer::OnSetCheckStyle(WPARAM style, LPARAM)
{
    m_CheckStyle = static_cast<UINT>(style);
    m_Model.ShowChecks(m_CheckStyle != 0);
    m_Delegate->SetMarkHandler([this](int row) { ToggleMark(row); });
    View().doItemsLayout();
    return 0;
}

LRESULT CListBoxPeer::OnGetCheck(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) ? m_Model.GetRow(number).m_Check : LB_ERR;
}

LRESULT CListBoxPeer::OnSetCheck(WPARAM row, LPARAM check)
{
    const auto number = static_cast<int>(row);
    const bool hasThird = m_CheckStyle == BS_3STATE || m_CheckStyle == BS_AUTO3STATE;
    const int highest = hasThird ? BST_INDETERMINATE : BST_CHECKED;
    if (!m_Model.Has(number) || check < BST_UNCHECKED || check > highest)
        return LB_ERR;
    m_Model.SetCheck(number, static_cast<int>(check));
    return 0;
}

LRESULT CListBoxPeer::OnIsEnabled(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    return m_Model.Has(number) && m_Model.GetRow(number).m_IsEnabled;
}

LRESULT CListBoxPeer::OnEnable(WPARAM row, LPARAM enabled)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number))
        return LB_ERR;
    m_Model.SetEnabled(number, enabled != 0);
    return 0;
}

LRESULT CListBoxPeer::OnSetSelectionCheck(WPARAM check, LPARAM)
{
    for (const QModelIndex& index : View().selectionModel()->selectedIndexes())
    {
        if (m_Model.GetRow(index.row()).m_IsEnabled)
            OnSetCheck(static_cast<WPARAM>(index.row()), static_cast<LPARAM>(check));
    }
    return 0;
}

/// What the user does to the mark of a row, and with it to those of all selected rows.
void CListBoxPeer::ToggleMark(int row)
{
    if (!m_Model.Has(row) || !m_Model.GetRow(row).m_IsEnabled)
        return;
    if (m_CheckStyle == BS_AUTOCHECKBOX || m_CheckStyle == BS_AUTO3STATE)
    {
        const int states = m_CheckStyle == BS_AUTO3STATE ? 3 : 2;
        const int next = (m_Model.GetRow(row).m_Check + 1) % states;
        if (View().selectionModel()->isSelected(m_Model.index(row)))
            OnSetSelectionCheck(static_cast<WPARAM>(next), 0);
        m_Model.SetCheck(row, next);
    }
    NotifyParent(static_cast<int>(CLBN_CHKCHANGE));
}

} // namespace utility
