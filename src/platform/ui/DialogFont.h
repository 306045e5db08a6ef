#pragma once

#include "platform/base/Types.h"
#include "platform/ui/DialogUnits.h"

namespace utility
{

class CString;
class CWnd;

/// Dialog units of the desktop's font for dialogs.
CDialogUnits GetDialogUnits();
/// The same of a font; `height` is in points.
CDialogUnits GetDialogUnits(const CString& face, WORD height);

/// Gives a dialog and its controls a font.
void SetDialogFont(const CWnd& dialog, const CString& face, WORD height);

} // namespace utility
