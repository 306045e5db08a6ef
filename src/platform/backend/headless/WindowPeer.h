#pragma once

#include "platform/base/Rect.h"
#include "platform/system/window/WindowPeer.h"

namespace utility
{

/// A window without a display: plain values, without a frame, which tell of their changes as a
/// real window does.
class CHeadlessWindowPeer final : public IWindowPeer
{
public:
    explicit CHeadlessWindowPeer(const CWindowRequest& request);

    void SetHandle(HWND window) override { m_Window = window; }
    void Close() override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    HWND GetParent() const override { return m_Request.m_Parent; }
    UINT GetId() const override { return m_Request.m_Id; }
    CString GetClassName() const override { return m_Request.m_ClassName; }
    DWORD GetStyle() const override;
    void SetStyle(DWORD style) override { m_Request.m_Style = style; }
    DWORD GetExStyle() const override { return m_Request.m_ExStyle; }
    void SetExStyle(DWORD style) override { m_Request.m_ExStyle = style; }

    void SetText(const CString& text) override { m_Request.m_Title = text; }
    CString GetText() const override { return m_Request.m_Title; }
    void SetAccessibleName(const CString& name) override { m_AccessibleName = name; }
    CString GetAccessibleName() const override { return m_AccessibleName; }

    void Show(bool visible) override { m_IsVisible = visible; }
    bool IsVisible() const override { return m_IsVisible; }
    void SetState(EWindowState state) override;
    EWindowState GetState() const override { return m_State; }
    void BringToTop() override;
    void Enable(bool enabled) override { m_IsEnabled = enabled; }
    bool IsEnabled() const override { return m_IsEnabled; }
    void TakeFocus() override;
    void SetCapture(bool captured) override;

    void Move(const CRect& place) override;
    CRect GetPlace() const override { return m_Request.m_Place; }
    CRect GetNormalPlace() const override { return m_Request.m_Place; }
    CSize GetClientSize() const override { return m_Request.m_Place.Size(); }
    CPoint GetClientOrigin() const override;
    void StackBelow(HWND) override {} // nothing is drawn

    void Invalidate(const CRect*) override {}
    void Update() override {}
    void SetRedraw(bool) override {}

private:
    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void TellSize();

    CWindowRequest m_Request;
    HWND m_Window = nullptr;
    bool m_IsVisible;
    bool m_IsEnabled;
    EWindowState m_State = EWindowState::Normal;
    CString m_AccessibleName;
    WPARAM m_Font = 0;
};

/// Knows every window class.
class CHeadlessWindowPeerFactory final : public IWindowPeerFactory
{
public:
    std::unique_ptr<IWindowPeer> Make(const CWindowRequest& request) override;
    HWND GetFocus() const override;
    HWND GetActive() const override;
    HWND GetCapture() const override;
};

} // namespace utility
