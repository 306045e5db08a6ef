#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

#include <QLabel>

namespace utility
{

/// A label or a picture.
class CStaticPeer final : public CQtWindowPeer
{
public:
    CStaticPeer(const CWindowRequest& request, QWidget* parent);

    void SetHandle(HWND window) override;
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void SetText(const CString& text) override;

    /// The letter behind "&" goes to that control, and the text is its name for assistive tools.
    void SetBuddy(QWidget& control);

private:
    QLabel& Label() const { return static_cast<QLabel&>(Widget()); }
    DWORD GetKind() const;
    void ShowText();
    bool SetImage(WPARAM kind, LPARAM image, LRESULT& before);
    void LoadPicture();
    void ShowPicture(const QPixmap& picture);

    LPARAM m_Image = 0;
    QPointer<QWidget> m_Buddy; // the control that this one names
};

/// Gives a control the label in front of it, if there is one that has no control yet.
void TakeLabelBefore(const CQtWindowPeer& control);

} // namespace utility
