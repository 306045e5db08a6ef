#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/system/window/CmdTarget.h"

#include <memory>
#include <vector>

namespace utility
{

class CPoint;
class CRect;
class CString;
class IWindowPeer;
struct WINDOWPLACEMENT;

/// A target of messages that may have a window: without widgets the window is a set of plain
/// values.
///
/// `PostMessage` and `SendMessage` may come from any thread; handlers run on the main thread. All
/// else belongs to the main thread. A handle is never used again, so what is still posted to a
/// window that is gone reaches nobody. Other programs see those windows that are no child and stand
/// over no other (LiveWindows.h). Without a window calls change nothing and answer false, null, 0
/// or empty. Sizes are pixels at 96 dots per inch.
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
    /// The same at a place: of a child in its parent's client area, else on the screen.
    bool CreateEx(DWORD exStyle, const char16_t* className, const char16_t* title, DWORD style,
                  const CRect& place, CWnd* parent, UINT id = 0);
    /// Sends WM_DESTROY, then ends the window and its children; false if there is none.
    virtual bool DestroyWindow();
    HWND GetSafeHwnd() const { return m_hWnd; }
    /// Who answers for a living window, else null. Any thread, but the object is only safe on the
    /// main thread.
    static CWnd* FromHandle(HWND window);
    /// What stands behind a living window, for the back ends; else null.
    static IWindowPeer* PeerOf(HWND window);
    /// Takes over a window, from the object that had it if there is one.
    bool Attach(HWND window);
    /// Gives the window up; a plain object of the library's own answers until it is attached again.
    HWND Detach();
    /// Told once an object has taken over a window, so that it can make it its own.
    virtual void PreSubclassWindow() {}
    bool SubclassWindow(HWND window) { return Attach(window); }
    /// Takes over the parent's control of that id; false if there is none.
    bool SubclassDlgItem(UINT id, CWnd* parent);

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
    /// All windows that are no child, the oldest first.
    static std::vector<HWND> GetTopLevelWindows();
    bool IsChild(const CWnd* window) const; // also a child's child
    /// Takes GW_...: children in their order, of which the first is the topmost.
    CWnd* GetWindow(UINT relation) const;
    CWnd* GetTopWindow() const;
    CWnd* GetNextWindow(UINT relation = 2) const; // GW_HWNDNEXT
    /// All children in their order, which does not change while they are walked.
    std::vector<CWnd*> GetChildren() const;
    CWnd* GetDlgItem(int id) const;
    /// The same among children's children.
    CWnd* GetDescendantWindow(int id) const;
    int GetDlgCtrlID() const;

    // Text and style
    void SetWindowText(const CString& text);
    void SetWindowTextW(const CString& text) { SetWindowText(text); }
    CString GetWindowText() const;
    CString GetWindowTextW() const;
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;
    /// What a screen reader says where the text does not tell it.
    void SetAccessibleName(const CString& name);
    CString GetAccessibleName() const;
    CString GetClassName() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    /// True if that changed anything.
    bool ModifyStyle(DWORD remove, DWORD add);
    bool ModifyStyleEx(DWORD remove, DWORD add);
    /// Null for the desktop's; the window keeps a font whose object goes.
    void SetFont(HFONT font, bool redraw = true);
    HFONT GetFont() const;

    // Showing
    /// Takes SW_...; tells whether the window was visible before.
    bool ShowWindow(int command);
    /// Also asks its parents.
    bool IsWindowVisible() const;
    bool IsZoomed() const; // maximised
    bool IsIconic() const; // minimised
    void GetWindowPlacement(WINDOWPLACEMENT& placement) const;
    /// Puts the window before the others; false if there is none.
    bool SetForegroundWindow();
    void BringWindowToTop() { SetForegroundWindow(); }
    CWnd* SetActiveWindow(); // the one before
    static CWnd* GetActiveWindow();
    static CWnd* GetForegroundWindow() { return GetActiveWindow(); }
    /// Both answer the state before.
    bool EnableWindow(bool enable = true);
    bool IsWindowEnabled() const;
    CWnd* SetFocus(); // the one before
    static CWnd* GetFocus();
    CWnd* SetCapture(); // the one before
    static CWnd* GetCapture();
    static void ReleaseCapture();

    // Place
    /// In pixels of the parent's client area, of the screen for a top-level window. A top-level
    /// window with a sizing border keeps to what WM_GETMINMAXINFO answers.
    void MoveWindow(const CRect& place, bool repaint = true);
    void MoveWindow(int x, int y, int width, int height, bool repaint = true);
    /// Takes SWP_...; `behind` is the child that shall stand directly above, null for the top.
    bool SetWindowPos(const CWnd* behind, int x, int y, int width, int height, UINT flags);
    /// On the screen, with the frame.
    CRect GetWindowRect() const;
    void GetWindowRect(CRect& place) const;
    CRect GetClientRect() const; // begins at 0, 0
    void GetClientRect(CRect& place) const;
    void ClientToScreen(CPoint& point) const;
    void ClientToScreen(CRect& place) const;
    void ScreenToClient(CPoint& point) const;
    void ScreenToClient(CRect& place) const;
    /// From this window's client area to another's; null is the screen.
    void MapWindowPoints(const CWnd* to, CPoint& point) const;
    void MapWindowPoints(const CWnd* to, CRect& place) const;

    // Painting
    void Invalidate(bool erase = true);
    void InvalidateRect(const CRect* part, bool erase = true);
    void UpdateWindow();
    /// Takes RDW_...
    void RedrawWindow(const CRect* part = nullptr, UINT flags = 0x105);
    void SetRedraw(bool on = true);

    // Timers: WM_TIMER comes with the number each time so many milliseconds have passed
    WPARAM SetTimer(WPARAM id, UINT milliseconds);
    bool KillTimer(WPARAM id);

    // Modal life
    /// Handles messages until `EndModalLoop` is called or the window ends; the result given there,
    /// or -1. The flag 4 shows the window first.
    int RunModalLoop(DWORD flags = 0);
    /// From here on an end counts for the next loop, even if that has not begun.
    void ExpectModalLoop();
    virtual void EndModalLoop(int result);

    /// Sees each posted message and each key before its window; true keeps it from there.
    virtual bool PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// Shows a key to the window and then to its parents, up to the top-level window; true if one
    /// of them kept it.
    static bool WalkPreTranslateTree(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd = nullptr;

protected:
    /// From message to handler: commands, notes, the rows of the message map, then the default.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// What the window does by itself.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    virtual bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// Sees each WM_COMMAND and WM_NOTIFY that this control sends before its parent; true keeps
    /// it from there, with the answer in `result`.
    virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    struct CModalState;
    friend class CWindowTable; // makes stand-ins

    static void DeliverPosted(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static bool ReflectToSender(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void DestroyChildren();
    void Place(const CRect& place);
    LRESULT OnSysCommand(WPARAM command);
    LRESULT CopyText(WPARAM capacity, LPARAM buffer) const;

    IWindowPeer* m_Peer = nullptr;        // owned by the table of windows, as long as m_hWnd lives
    std::shared_ptr<CModalState> m_Modal; // while a modal loop waits for this window
};

} // namespace utility
