#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <memory>

namespace utility
{

/// What a new window is made of.
struct CWindowRequest
{
    CString m_ClassName;
    CString m_Title;
    DWORD m_Style = 0;       // a sum of WS_...
    HWND m_Parent = nullptr; // of a child; of a top-level window the one that it stands over
    UINT m_Id = 0;           // of a control in its parent
    DWORD m_ExStyle = 0;     // a sum of WS_EX_...
    CRect m_Place = {};      // as for IWindowPeer::Move; empty: wherever it likes
};

enum class EWindowState
{
    Normal,
    Minimised,
    Maximised
};

/// The other half of a window: what is seen of it. User-interface thread.
///
/// Owned by the table of windows. What changes a window's size or focus tells the window by
/// WM_SIZE, WM_MOVE, WM_SETFOCUS and WM_KILLFOCUS before it returns.
class UTILITY_CORE_API IWindowPeer
{
public:
    virtual ~IWindowPeer() = default;

    // Life
    /// Told once, when the window can be found by its handle.
    virtual void SetHandle(HWND window) = 0;
    /// The window ends and is seen no more; the object itself may live until its callers are done.
    virtual void Close() = 0;
    /// What the window does with a message of its own, such as EM_SETSEL; false leaves it alone.
    virtual bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;

    // What it was made of
    virtual HWND GetParent() const = 0;
    virtual UINT GetId() const = 0;
    virtual CString GetClassName() const = 0;
    virtual DWORD GetStyle() const = 0;
    virtual void SetStyle(DWORD style) = 0;
    virtual DWORD GetExStyle() const = 0;
    virtual void SetExStyle(DWORD style) = 0;

    virtual void SetText(const CString& text) = 0;
    virtual CString GetText() const = 0;
    virtual void SetAccessibleName(const CString& name) = 0;
    virtual CString GetAccessibleName() const = 0;

    // Showing
    virtual void Show(bool visible) = 0;
    /// Whether it would be seen if its parents were.
    virtual bool IsVisible() const = 0;
    virtual void SetState(EWindowState state) = 0;
    virtual EWindowState GetState() const = 0;
    virtual void BringToTop() = 0; // and active
    virtual void Enable(bool enabled) = 0;
    virtual bool IsEnabled() const = 0;
    virtual void TakeFocus() = 0;
    /// While captured, all of the pointer's messages come here.
    virtual void SetCapture(bool captured) = 0;

    // Place
    /// In pixels of the parent's client area, of the screen for a top-level window; with its frame.
    virtual void Move(const CRect& place) = 0;
    virtual CRect GetPlace() const = 0;
    /// The place that it has when it is neither minimised nor maximised.
    virtual CRect GetNormalPlace() const = 0;
    virtual CSize GetClientSize() const = 0;
    /// Where its client area begins on the screen.
    virtual CPoint GetClientOrigin() const = 0;
    /// Draws it below another child of its parent, above all for null. Order is kept by the table
    /// of windows; a peer only shows it.
    virtual void StackBelow(HWND sibling) = 0;

    // Painting
    /// Part of the client area is painted anew soon; null for all of it.
    virtual void Invalidate(const CRect* part) = 0;
    /// Paints now what is due.
    virtual void Update() = 0;
    /// Off, nothing is painted until it is on again.
    virtual void SetRedraw(bool on) = 0;
};

/// Makes the peers of new windows and knows which of them are in use.
class UTILITY_CORE_API IWindowPeerFactory
{
public:
    virtual ~IWindowPeerFactory() = default;

    /// Null if there is no such window class.
    virtual std::unique_ptr<IWindowPeer> Make(const CWindowRequest& request) = 0;

    // Null if there is none of this process
    virtual HWND GetFocus() const = 0;
    virtual HWND GetActive() const = 0;
    virtual HWND GetCapture() const = 0;
};

/// A factory whose peers are plain values, for every window class.
UTILITY_CORE_API std::unique_ptr<IWindowPeerFactory> MakeHeadlessWindowPeerFactory();

/// The factory in force: the one installed, else a headless one.
UTILITY_CORE_API IWindowPeerFactory& GetWindowPeerFactory();

/// Installs a factory, which the caller keeps alive, or with null the default again. Returns what
/// was installed before.
UTILITY_CORE_API IWindowPeerFactory* SetWindowPeerFactory(IWindowPeerFactory* factory);

} // namespace utility
