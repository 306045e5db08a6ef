#pragma once

#include "platform/backend/qt/EditPeer.h"

#include <QLineEdit>

namespace utility
{

/// A text field of one line.
class CLineEditPeer final : public CEditPeer
{
public:
    CLineEditPeer(const CWindowRequest& request, QWidget* parent);

    void SetText(const CString& text) override;
    CString GetText() const override;

private:
    CRange GetRange() const override;
    void SelectRange(CRange range) override;
    void Deselect() override;
    void ShowCaret() override;
    void Replace(const QString& text) override;
    void SetLimit(int limit) override;
    int GetLimit() const override { return m_Limit; }
    void SetReadOnly(bool readOnly) override { Field().setReadOnly(readOnly); }
    bool IsModified() const override { return Field().isModified(); }
    void SetModified(bool modified) override { Field().setModified(modified); }
    int GetLineCount() const override { return 1; }
    void Clip(UINT message) override;

    QLineEdit& Field() const { return static_cast<QLineEdit&>(Widget()); }
    void KeepLimit();
    void SetRoom(int units);

    int m_Limit = 0;            // 0: none
    bool m_IsOwnChange = false; // who changes the text tells it
};

} // namespace utility
