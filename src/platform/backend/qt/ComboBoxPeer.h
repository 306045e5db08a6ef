#pragma once

#include "platform/backend/qt/RowsPeer.h"

#include <QComboBox>

namespace utility
{

class CListDelegate;

/// A field with a list that drops down.
class CComboBoxPeer final : public CRowsPeer
{
public:
    CComboBoxPeer(const CWindowRequest& request, QWidget* parent);
    ~CComboBoxPeer() override;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void SetText(const CString& text) override;
    CString GetText() const override;
    void Move(const CRect& place) override;

    // What the widget tells
    void OnOpening();
    void OnClosed();
    bool IsFieldOwnerDrawn() const;
    void PaintField(QPainter& painter, const QRect& place) const;

private:
    /// Rows come and go, and the field stays as it is.
    class CKeepField
    {
    public:
        explicit CKeepField(CComboBoxPeer& peer);
        ~CKeepField();

    private:
        QComboBox& m_Box;
        bool m_HadRow;
        QString m_Text;
    };

    // Rows: ComboBoxRows.cpp
    LRESULT OnAddString(WPARAM, LPARAM text);
    LRESULT OnInsertString(WPARAM row, LPARAM text);
    LRESULT OnDeleteString(WPARAM row, LPARAM);
    LRESULT OnResetContent(WPARAM, LPARAM);
    LRESULT OnSetRows(WPARAM, LPARAM rows);

    // Field and list
    LRESULT OnGetCurSel(WPARAM, LPARAM);
    LRESULT OnSetCurSel(WPARAM row, LPARAM) override;
    LRESULT OnGetEditSel(WPARAM first, LPARAM last);
    LRESULT OnSetEditSel(WPARAM, LPARAM range);
    LRESULT OnLimitText(WPARAM limit, LPARAM);
    LRESULT OnShowDropDown(WPARAM show, LPARAM);
    LRESULT OnGetDroppedState(WPARAM, LPARAM);
    LRESULT OnGetDroppedWidth(WPARAM, LPARAM);
    LRESULT OnSetDroppedWidth(WPARAM width, LPARAM);
    LRESULT OnGetItemHeight(WPARAM row, LPARAM);
    LRESULT OnSetItemHeight(WPARAM row, LPARAM height);

    // The window
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);

    QComboBox& Box() const { return static_cast<QComboBox&>(Widget()); }
    bool HasField() const { return Box().isEditable(); }
    void Tell(UINT code) const;
    void OnTaken(int row);
    void OnEdited();
    void TellClosed(UINT code);

    CListDelegate* m_Delegate; // the box's
    int m_DroppedWidth = 0;
    int m_FieldHeight = 0;    // 0: as the style likes
    bool m_IsEdited = false;  // the user has written since a row was taken
    bool m_IsClosing = false; // the list has closed, and it is not known yet why
    bool m_IsListOpen = false;
};

} // namespace utility
