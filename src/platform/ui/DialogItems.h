#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CString;
class CWnd;

/// Short ways to a dialog's controls by their ids. An absent control is passed over: calls that
/// change one answer false, those that ask answer 0 or empty.
UTILITY_UI_API CWnd* GetDlgItem(const CWnd& dialog, int id); // null if absent
UTILITY_UI_API bool EnableDlgItem(const CWnd& dialog, int id, bool enable);
UTILITY_UI_API bool SetDlgItemText(const CWnd& dialog, int id, const CString& text);
UTILITY_UI_API CString GetDlgItemText(const CWnd& dialog, int id);

/// 0 off, 1 on, 2 neither.
UTILITY_UI_API UINT IsDlgButtonChecked(const CWnd& dialog, int id);
UTILITY_UI_API bool CheckDlgButton(const CWnd& dialog, int id, UINT state);

} // namespace utility
