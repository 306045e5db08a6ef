#include "platform/backend/qt/RowsPeer.h"

#include "platform/system/window/WindowMessages.h"

namespace utility
{

namespace
{

constexpr LRESULT NO_ROW = -1; // LB_ERR and CB_ERR

} // namespace

LRESULT CRowsPeer::OnGetCount(WPARAM, LPARAM)
{
    return m_Model.GetCount();
}

LRESULT CRowsPeer::OnGetText(WPARAM row, LPARAM buffer)
{
    return m_Model.AnswerText(row, buffer);
}

LRESULT CRowsPeer::OnGetTextLen(WPARAM row, LPARAM)
{
    return m_Model.AnswerTextLength(row);
}

LRESULT CRowsPeer::OnGetItemData(WPARAM row, LPARAM)
{
    return m_Model.AnswerData(row);
}

LRESULT CRowsPeer::OnSetItemData(WPARAM row, LPARAM data)
{
    return m_Model.AnswerSetData(row, data);
}

LRESULT CRowsPeer::OnFindString(WPARAM after, LPARAM text)
{
    return m_Model.AnswerFind(after, text, false);
}

LRESULT CRowsPeer::OnFindStringExact(WPARAM after, LPARAM text)
{
    return m_Model.AnswerFind(after, text, true);
}

LRESULT CRowsPeer::OnSelectString(WPARAM after, LPARAM text)
{
    const LRESULT row = m_Model.AnswerFind(after, text, false);
    return row < 0 ? NO_ROW : OnSetCurSel(static_cast<WPARAM>(row), 0);
}

LRESULT CRowsPeer::OnGetDialogCode(WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

} // namespace utility
