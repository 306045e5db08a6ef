#pragma once

#include "platform/backend/qt/ListModel.h"
#include "platform/backend/qt/QtWindowPeer.h"

namespace utility
{

/// What the peers of lists and combos answer alike: all that their rows alone decide.
class CRowsPeer : public CQtWindowPeer
{
protected:
    using CQtWindowPeer::CQtWindowPeer;

    LRESULT OnGetCount(WPARAM, LPARAM);
    LRESULT OnGetText(WPARAM row, LPARAM buffer);
    LRESULT OnGetTextLen(WPARAM row, LPARAM);
    LRESULT OnGetItemData(WPARAM row, LPARAM);
    LRESULT OnSetItemData(WPARAM row, LPARAM data);
    LRESULT OnFindString(WPARAM after, LPARAM text);
    LRESULT OnFindStringExact(WPARAM after, LPARAM text);
    LRESULT OnSelectString(WPARAM after, LPARAM text);
    LRESULT OnGetDialogCode(WPARAM, LPARAM);
    virtual LRESULT OnSetCurSel(WPARAM row, LPARAM) = 0;

    CListModel m_Model;
};

} // namespace utility
