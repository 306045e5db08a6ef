#pragma once

#include "platform/ui/controls/Edit.h"

namespace utility
{

class CString;

/// A text field with what dialogs ask of one most.
class UTILITY_UI_API CEditCtrl : public CEdit
{
    DECLARE_DYNAMIC(CEditCtrl)

public:
    bool IsEmpty() const { return GetWindowTextLength() == 0; }
    bool IsReadOnly() const;
    void SelectAll() { SetSel(0, -1); }
    /// Writes a text unless it is there already, so that caret and undo stay.
    void SetText(const CString& text);
};

} // namespace utility
