#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <memory>

namespace utility
{

class CRect;

/// What a new window is made of.
struct CWindowRequest
{
    CString m_ClassName;
    CString m_Title;
    DWORD m_Style = 0;       // a sum of WS_...
    HWND m_Parent = nullptr; // of a child; of a top-level window the one that it stands over
    UINT m_Id = 0;           // of a control in its parent
};

/// The other half of a window: what is seen of it. Owned by its `CWnd`; user-interface thread.
class UTILITY_CORE_API IWindowPeer
{
public:
    virtual ~IWindowPeer() = default;

    virtual HWND GetParent() const = 0;
    virtual UINT GetId() const = 0;
    virtual CString GetClassName() const = 0;
    virtual DWORD GetStyle() const = 0;

    virtual void SetText(const CString& text) = 0;
    virtual CString GetText() const = 0;

    virtual void Show(bool visible) = 0;
    virtual bool IsVisible() const = 0;
    virtual void Maximise(bool maximised) = 0;
    virtual bool IsMaximised() const = 0;
    virtual void BringToTop() = 0;
    virtual void Enable(bool enabled) = 0;
    virtual bool IsEnabled() const = 0;

    /// In pixels of the parent, of the screen for a top-level window.
    virtual void Move(const CRect& place) = 0;
    virtual CRect GetPlace() const = 0;
};

/// Makes the peers of new windows.
class UTILITY_CORE_API IWindowPeerFactory
{
public:
    virtual ~IWindowPeerFactory() = default;

    /// Null if there is no such window class.
    virtual std::unique_ptr<IWindowPeer> Make(const CWindowRequest& request) = 0;
};

/// A factory whose peers are plain values, for every window class.
UTILITY_CORE_API std::unique_ptr<IWindowPeerFactory> MakeHeadlessWindowPeerFactory();

/// The factory in force: the one installed, else a headless one.
UTILITY_CORE_API IWindowPeerFactory& GetWindowPeerFactory();

/// Installs a factory, which the caller keeps alive, or with null the default again. Returns what
/// was installed before.
UTILITY_CORE_API IWindowPeerFactory* SetWindowPeerFactory(IWindowPeerFactory* factory);

} // namespace utility
