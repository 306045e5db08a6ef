#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/system/window/CmdTarget.h"

namespace utility
{

class CRect;
class CString;
class IWindowPeer;

/// A target of messages that may have a window: without widgets the window is a set of plain
/// values.
///
/// `PostMessage` and `SendMessage` may come from any thread; handlers run on the main thread. All
/// else belongs to the main thread. A handle is never used again, so what is still posted to a
/// window that is gone reaches nobody. Other programs see those windows that are no child and stand
/// over no other (LiveWindows.h).
class UTILITY_CORE_API CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd();
    ~CWnd() override; // destroys the window

    // The window
    /// Makes the window; false if it has one, or there is no such class. A child lives no longer
    /// than its parent.
    bool Create(const char16_t* className, const char16_t* title, DWORD style, CWnd* parent,
                UINT id = 0);
    /// Sends WM_DESTROY, then ends the window and its children; false if there is none.
    virtual bool DestroyWindow();
    HWND GetSafeHwnd() const { return m_hWnd; }
    /// The object of a living window, or null. Any thread, but the object is only safe on the main
    /// thread.
    static CWnd* FromHandle(HWND window);
    /// Takes over a window, from the object that had it if there is one.
    bool Attach(HWND window);
    /// Gives the window up, which then lives without an object until it is attached again.
    HWND Detach();

    // Messages
    /// The handler's answer, once it has run; 0 if the window or the loop ended before.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendMessageW(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessage(message, wParam, lParam);
    }
    /// Leaves the message in the loop's queue; false if there is no window or the loop has ended.
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    bool PostMessageW(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return PostMessage(message, wParam, lParam);
    }

    // Relations
    CWnd* GetParent() const;
    /// The parent of a child; of a top-level window the window that it stands over.
    CWnd* GetOwner() const { return GetParent(); }
    /// The outermost ancestor, or this.
    CWnd* GetTopLevelParent();

    // State
    void SetWindowText(const CString& text);
    CString GetWindowText() const;
    /// Takes SW_...; tells whether the window was visible before.
    bool ShowWindow(int command);
    bool IsWindowVisible() const;
    bool IsZoomed() const; // maximised
    /// Puts the window before the others; false if there is none.
    bool SetForegroundWindow();
    void BringWindowToTop() { SetForegroundWindow(); }
    /// Both answer the state before.
    bool EnableWindow(bool enable = true);
    bool IsWindowEnabled() const;
    void MoveWindow(const CRect& place);
    /// The place that the window takes; empty if there is none.
    CRect GetWindowRect() const;

    /// Sees each posted message before its window; true keeps it from there.
    virtual bool PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd = nullptr;

protected:
    /// From message to handler: commands, notes, the rows of the message map, then the default.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    virtual bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    static void DeliverPosted(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    IWindowPeer* m_Peer = nullptr; // owned by the table of windows, as long as m_hWnd lives
};

} // namespace utility
