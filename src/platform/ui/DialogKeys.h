#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// The control that Tab goes to from `from` (or, with null, into the dialog): visible, enabled,
/// with WS_TABSTOP; also inside pages (WS_EX_CONTROLPARENT), and round from the last to the first.
/// Null if there is none.
UTILITY_UI_API CWnd* GetNextDlgTabItem(const CWnd& dialog, const CWnd* from, bool backwards);

/// The same among the controls from one with WS_GROUP up to the next, whether they are tab stops or
/// not.
UTILITY_UI_API CWnd* GetNextDlgGroupItem(const CWnd& dialog, const CWnd* from, bool backwards);

/// Gives a control the focus, a text field with its text selected.
void FocusControl(CWnd& control);

/// What a dialog does with a key or character that comes to one of its controls; false if nothing.
bool HandleDialogKey(CWnd& dialog, UINT message, WPARAM wParam);

} // namespace utility
