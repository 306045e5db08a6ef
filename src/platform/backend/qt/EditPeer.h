#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

namespace utility
{

/// What text fields of one line and of many have in common: their messages and notes.
///
/// Positions are those of the text that the window shows to others, in which a line ends in CR LF.
class CEditPeer : public CQtWindowPeer
{
public:
    using CQtWindowPeer::CQtWindowPeer;

    void SetHandle(HWND window) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

protected:
    struct CRange
    {
        int m_First = 0;
        int m_Last = 0;
    };

    virtual CRange GetRange() const = 0;
    virtual void SelectRange(CRange range) = 0;
    virtual void Deselect() = 0;
    virtual void ShowCaret() = 0;
    virtual void Replace(const QString& text) = 0;
    virtual void SetLimit(int limit) = 0;
    virtual int GetLimit() const = 0;
    virtual void SetReadOnly(bool readOnly) = 0;
    virtual bool IsModified() const = 0;
    virtual void SetModified(bool modified) = 0;
    virtual int GetLineCount() const = 0;
    /// WM_CUT, WM_COPY, WM_PASTE, WM_CLEAR.
    virtual void Clip(UINT message) = 0;
    virtual LRESULT GetDialogCode() const;

    /// Once the window is made.
    void TellChange();

private:
    bool HandleState(UINT message, WPARAM wParam, LRESULT& result);
    LRESULT TellRange(WPARAM first, LPARAM last) const;
    void TakeRange(int first, int last);

    bool m_IsMade = false;
};

} // namespace utility
