#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

class QAbstractButton;

namespace utility
{

/// A push button, check box or radio button.
class CButtonPeer final : public CQtWindowPeer
{
public:
    CButtonPeer(const CWindowRequest& request, QWidget* parent);

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void SetText(const CString& text) override;

private:
    QAbstractButton& Button() const;
    DWORD GetKind() const;
    int GetCheck() const;
    void SetCheck(int check);
    void ShowKind(DWORD kind);
    LRESULT SetImage(WPARAM kind, LPARAM image);
    LRESULT GetDialogCode() const;
    void OnClick();
    void UncheckGroup();

    int m_Check = 0; // BST_..., also where the widget has no such state
    LPARAM m_Image = 0;
};

/// The frame of a group, with its title.
class CGroupBoxPeer final : public CQtWindowPeer
{
public:
    CGroupBoxPeer(const CWindowRequest& request, QWidget* parent);

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void SetText(const CString& text) override;

    void FocusNext() const;
};

} // namespace utility
