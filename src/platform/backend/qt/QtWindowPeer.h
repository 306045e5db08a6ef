#pragma once

#include "platform/backend/qt/EventBridge.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowStyles.h"

#include <QPointer>
#include <QWidget>

namespace utility
{

class CWnd;
struct NMHDR;

/// A window with a widget behind it. Kinds of windows derive from it and answer their own messages
/// in `HandleMessage`.
///
/// The widget ends with the window, but never inside an event of its own. Whoever calls out
/// (`Send`, `NotifyParent`) asks `IsOpen` before touching the widget again: the window may have
/// ended meanwhile, though this object has not.
class CQtWindowPeer : public IWindowPeer
{
public:
    /// Takes the widget, which was made as a child of its parent's widget.
    CQtWindowPeer(const CWindowRequest& request, QWidget* widget);
    ~CQtWindowPeer() override;
    CQtWindowPeer(const CQtWindowPeer&) = delete;
    CQtWindowPeer& operator=(const CQtWindowPeer&) = delete;

    QWidget& Widget() const { return *m_Widget; }
    bool IsOpen() const { return m_IsOpen; }
    HWND GetHandle() const { return m_Window; }
    bool IsChild() const { return (m_Request.m_Style & WS_CHILD) != 0; }

    // Calling out; what a handler throws passes on in the loop
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// WM_COMMAND with this control's id and such a code.
    void NotifyParent(int code) const;
    /// WM_NOTIFY; fills in who tells it. The record may be the beginning of a longer one.
    LRESULT NotifyParent(NMHDR& note) const;
    /// WM_SIZE or WM_MOVE, unless that is known already.
    void TellSize();
    void TellMove();

    void SetHandle(HWND window) override;
    void Close() override;
    /// A message that stands for an event does what the widget does with that event.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    HWND GetParent() const override { return m_Request.m_Parent; }
    UINT GetId() const override { return m_Request.m_Id; }
    CString GetClassName() const override { return m_Request.m_ClassName; }
    DWORD GetStyle() const override;
    void SetStyle(DWORD style) override { m_Request.m_Style = style; }
    DWORD GetExStyle() const override { return m_Request.m_ExStyle; }
    void SetExStyle(DWORD style) override { m_Request.m_ExStyle = style; }

    void SetText(const CString& text) override;
    CString GetText() const override { return m_Request.m_Title; }
    void SetAccessibleName(const CString& name) override;
    CString GetAccessibleName() const override;

    void Show(bool visible) override;
    bool IsVisible() const override;
    void SetState(EWindowState state) override;
    EWindowState GetState() const override;
    void BringToTop() override;
    void Enable(bool enabled) override;
    bool IsEnabled() const override { return m_IsEnabled; }
    void TakeFocus() override;
    void SetCapture(bool captured) override;

    void Move(const CRect& place) override;
    CRect GetPlace() const override;
    CRect GetNormalPlace() const override;
    CSize GetClientSize() const override;
    CPoint GetClientOrigin() const override;
    void StackBelow(HWND sibling) override;

    void Invalidate(const CRect* part) override;
    void Update() override;
    void SetRedraw(bool on) override;

protected:
    CEventBridge& Bridge() { return m_Bridge; }

private:
    void SetFont(WPARAM font);
    QMargins GetFrame() const;
    void LimitSize();
    void ShowFont();

    CWindowRequest m_Request;
    HWND m_Window = nullptr;
    QPointer<QWidget> m_Widget;
    CEventBridge m_Bridge;
    bool m_IsOpen = true;
    bool m_IsEnabled = true;
    WPARAM m_Font = 0;
    CSize m_ToldSize;
    EWindowState m_ToldState = EWindowState::Normal;
    CPoint m_ToldPlace;
    QMargins m_NormalFrame; // a maximised window may have a smaller one
};

/// The window that a widget, or the nearest widget around it, stands for; null if there is none.
HWND HandleOf(const QWidget* widget);

/// Null if the window is gone or none of ours.
CQtWindowPeer* PeerOf(HWND window);
QWidget* WidgetOf(const CWnd& window);

/// Whether a window is kept from the user's keys and pointer, as owners of modal dialogs are.
bool IsBarred(const QWidget& widget);

} // namespace utility
