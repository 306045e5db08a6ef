#pragma once

#include "platform/base/Export.h"
#include "platform/ui/Dialog.h"

#include <span>
#include <vector>

namespace utility
{

/// A dialog that can take the colours of the visual manager.
class UTILITY_UI_API CBCGPDialog : public CDialog
{
    DECLARE_DYNAMIC(CBCGPDialog)

public:
    CBCGPDialog() = default;
    explicit CBCGPDialog(UINT templateId, CWnd* parent = nullptr) : CDialog(templateId, parent) {}
    explicit CBCGPDialog(const char16_t* templateName, CWnd* parent = nullptr)
        : CDialog(templateName, parent)
    {
    }

    /// Styled or not; `frame` asks for a styled frame too, which the window system draws here.
    /// Controls with the ids left out keep their own looks.
    void EnableVisualManagerStyle(bool enable = true, bool frame = false,
                                  std::span<const UINT> leftOut = {});
    bool IsVisualManagerStyle() const { return m_IsStyled; }
    bool IsLeftOut(UINT id) const;

    const CMessageMap* GetMessageMap() const override;

protected:
    /// The manager's colours, or whether it styles dialogs, have changed.
    virtual LRESULT OnChangeVisualManager(WPARAM wParam, LPARAM lParam);

private:
    bool m_IsStyled = false;
    std::vector<UINT> m_LeftOut;
};

} // namespace utility
