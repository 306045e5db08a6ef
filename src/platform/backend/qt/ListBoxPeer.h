#pragma once

#include "platform/backend/qt/RowsPeer.h"

#include <QListView>

class QKeyEvent;

namespace utility
{

class CListDelegate;

/// A list of rows.
class CListBoxPeer final : public CRowsPeer
{
public:
    CListBoxPeer(const CWindowRequest& request, QWidget* parent);
    ~CListBoxPeer() override;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    /// True: the key has been dealt with.
    bool OnKey(const QKeyEvent& event);
    void OnDoubleClick(int row, bool isOnMark);

private:
    // Rows: ListBoxRows.cpp
    LRESULT OnAddString(WPARAM, LPARAM text);
    LRESULT OnInsertString(WPARAM row, LPARAM text);
    LRESULT OnDeleteString(WPARAM row, LPARAM);
    LRESULT OnResetContent(WPARAM, LPARAM);

    // Selection: ListBoxSelection.cpp
    LRESULT OnGetCurSel(WPARAM, LPARAM);
    LRESULT OnSetCurSel(WPARAM row, LPARAM) override;
    LRESULT OnGetSel(WPARAM row, LPARAM);
    LRESULT OnSetSel(WPARAM select, LPARAM row);
    LRESULT OnGetSelCount(WPARAM, LPARAM);
    LRESULT OnGetSelItems(WPARAM room, LPARAM rows);
    LRESULT OnGetCaretIndex(WPARAM, LPARAM);
    LRESULT OnSetCaretIndex(WPARAM row, LPARAM);

    // Look
    LRESULT OnGetTopIndex(WPARAM, LPARAM);
    LRESULT OnSetTopIndex(WPARAM row, LPARAM);
    LRESULT OnSetTabStops(WPARAM count, LPARAM stops);
    LRESULT OnGetHorizontalExtent(WPARAM, LPARAM);
    LRESULT OnSetHorizontalExtent(WPARAM width, LPARAM);
    LRESULT OnGetItemHeight(WPARAM row, LPARAM);
    LRESULT OnSetItemHeight(WPARAM row, LPARAM height);
    LRESULT OnGetItemRect(WPARAM row, LPARAM rect);

    // Marks: ListBoxMarks.cpp
    LRESULT OnGetCheckStyle(WPARAM, LPARAM);
    LRESULT OnSetCheckStyle(WPARAM style, LPARAM);
    LRESULT OnGetCheck(WPARAM row, LPARAM);
    LRESULT OnSetCheck(WPARAM row, LPARAM check);
    LRESULT OnIsEnabled(WPARAM row, LPARAM);
    LRESULT OnEnable(WPARAM row, LPARAM enabled);
    LRESULT OnSetSelectionCheck(WPARAM check, LPARAM);
    void ToggleMark(int row);

    // The window
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);

    QListView& View() const { return static_cast<QListView&>(Widget()); }
    bool HasManySelected() const;
    int GetSelectedRow() const;
    void Select(int row, bool select);
    void GoTo(int row);
    void Tell(UINT code) const;

    CListDelegate* m_Delegate; // the view's
    int m_Extent = 0;
    UINT m_CheckStyle = 0; // 0: no marks
    bool m_IsOwnChange = false;
};

} // namespace utility
