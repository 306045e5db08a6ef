#pragma once

#include "platform/ui/controls/Button.h"

namespace utility
{

class CString;

/// A button with what dialogs ask of one most.
class UTILITY_UI_API CButtonCtrl : public CButton
{
    DECLARE_DYNAMIC(CButtonCtrl)

public:
    /// A half mark is none.
    bool IsChecked() const;
    void SetChecked(bool checked = true);
    /// Marked if all are, half marked if some are; a box of two states shows some as all.
    void SetCheckedCount(int checked, int count);
    /// Writes a text unless it is there already.
    void SetText(const CString& text);
    /// As if the user had clicked; nothing while it is disabled.
    void Click();
};

} // namespace utility
