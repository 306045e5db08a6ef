#pragma once

#include "platform/backend/qt/EditPeer.h"

#include <QPlainTextEdit>

namespace utility
{

/// A text field of many lines.
class CTextEditPeer final : public CEditPeer
{
public:
    CTextEditPeer(const CWindowRequest& request, QWidget* parent);

    void SetText(const CString& text) override;
    CString GetText() const override;

private:
    CRange GetRange() const override;
    void SelectRange(CRange range) override;
    void Deselect() override;
    void ShowCaret() override { Field().ensureCursorVisible(); }
    void Replace(const QString& text) override;
    void SetLimit(int limit) override { m_Limit = limit < 0 ? 0 : limit; }
    int GetLimit() const override { return m_Limit; }
    void SetReadOnly(bool readOnly) override;
    bool IsModified() const override { return Field().document()->isModified(); }
    void SetModified(bool modified) override { Field().document()->setModified(modified); }
    int GetLineCount() const override;
    void Clip(UINT message) override;
    LRESULT GetDialogCode() const override;

    QPlainTextEdit& Field() const { return static_cast<QPlainTextEdit&>(Widget()); }
    void OnChange();

    int m_Limit = 0; // 0: none
    bool m_IsOwnChange = false;
};

} // namespace utility
