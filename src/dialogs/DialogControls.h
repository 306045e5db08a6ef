#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// Children of a dialog switched, shown and recognised; an id that no child has changes nothing.
/// User-interface thread.

UTILITY_UI_API void EnableCtrl(CWnd& parent, UINT id, bool enable);

UTILITY_UI_API void ShowControl(CWnd& parent, UINT id);
UTILITY_UI_API void HideControl(CWnd& parent, UINT id);
/// Hides and disables, or shows and enables: what is hidden takes no mnemonic either.
UTILITY_UI_API void HideControl(CWnd& control, bool hide);

/// Gives a control the focus; of an edit all text is selected and the caret scrolled into view.
/// Keeps the last system code, so that an error can still be told afterwards.
UTILITY_UI_API void ReselectControl(CWnd& control);
UTILITY_UI_API void ReselectControl(CWnd& parent, UINT id);

/// By window class.
UTILITY_UI_API bool IsDialog(const CWnd& window);
/// An edit that is not read-only, or any combo box.
UTILITY_UI_API bool IsCtrlWritable(const CWnd& control);

} // namespace utility
