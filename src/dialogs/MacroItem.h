#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

class CWnd;

/// What a macro keeps of a control, and how it is played back.
///
///     control            value               played back
///     edit               its text            written
///     combo              text of the field   chosen; written where the field takes any text
///     check, radio       0, 1 or 2           marked
///     push button        empty               pressed
///
/// Dialogs answer "MvtMacroItemGetValue" and "MvtMacroItemReplay" by these: `wParam` is the
/// control's id, `lParam` a `CString` to fill or to play back; 1 if that could be done. User-
/// interface thread.

/// False, and `value` keeps its preset, for any other kind of control.
[[nodiscard]] UTILITY_UI_API bool GetMacroItemValue(const CWnd& control, CString& value);

/// As if the user had done it, so the parent hears of it. False, and nothing is changed, for a
/// control that the user could not have changed so: disabled, read-only, without such a row.
[[nodiscard]] UTILITY_UI_API bool ReplayMacroItem(CWnd& control, const CString& value);

} // namespace utility
