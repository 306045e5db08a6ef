#pragma once

#include "platform/ui/controls/Static.h"

namespace utility
{

class CString;

/// A label with what dialogs ask of one most.
class UTILITY_UI_API CStaticCtrl : public CStatic
{
    DECLARE_DYNAMIC(CStaticCtrl)

public:
    /// Writes a text unless it is there already, so that it does not flicker.
    void SetText(const CString& text);
    /// The text of that id; false, and the label stays as it is, if there is none.
    bool SetText(UINT id);
    /// Whether the text is wider than the label (ControlText.h).
    bool IsTextTooLong() const;
};

} // namespace utility
