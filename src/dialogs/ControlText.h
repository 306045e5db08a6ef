#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CString;
class CWnd;

/// The text of a dialog's control from the string table; an absent control is passed over.
UTILITY_UI_API void SetCtrlText(CWnd& dialog, UINT id, UINT stringId);

/// Whether a text on one line reaches beyond a control by more than a tenth of its own width.
UTILITY_UI_API bool TextTooLongForControl(const CString& text, const CWnd& control);

} // namespace utility
