#pragma once

#include "platform/base/Rect.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"

namespace utility
{

/// A window without a display: plain values.
class CHeadlessWindowPeer final : public IWindowPeer
{
public:
    explicit CHeadlessWindowPeer(const CWindowRequest& request)
        : m_Request(request),
          m_IsVisible((request.m_Style & WS_VISIBLE) != 0)
    {
    }

    HWND GetParent() const override { return m_Request.m_Parent; }
    UINT GetId() const override { return m_Request.m_Id; }
    CString GetClassName() const override { return m_Request.m_ClassName; }
    DWORD GetStyle() const override { return m_Request.m_Style; }

    void SetText(const CString& text) override { m_Request.m_Title = text; }
    CString GetText() const override { return m_Request.m_Title; }

    void Show(bool visible) override { m_IsVisible = visible; }
    bool IsVisible() const override { return m_IsVisible; }
    void Maximise(bool maximised) override { m_IsMaximised = maximised; }
    bool IsMaximised() const override { return m_IsMaximised; }
    void BringToTop() override {} // the order of windows is kept by who lists them
    void Enable(bool enabled) override { m_IsEnabled = enabled; }
    bool IsEnabled() const override { return m_IsEnabled; }

    void Move(const CRect& place) override { m_Place = place; }
    CRect GetPlace() const override { return m_Place; }

private:
    CWindowRequest m_Request;
    bool m_IsVisible;
    bool m_IsMaximised = false;
    bool m_IsEnabled = true;
    CRect m_Place;
};

/// Knows every window class.
class CHeadlessWindowPeerFactory final : public IWindowPeerFactory
{
public:
    std::unique_ptr<IWindowPeer> Make(const CWindowRequest& request) override
    {
        return std::make_unique<CHeadlessWindowPeer>(request);
    }
};

} // namespace utility
