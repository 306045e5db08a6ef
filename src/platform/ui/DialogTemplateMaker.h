#pragma once

#include "platform/ui/DialogTemplate.h"
#include "platform/ui/dialogtext/DialogTextLines.h"

namespace utility
{

/// Makes a template of the lines of a text: texts of the string table are looked up, escapes
/// resolved, and each control that takes keys gets the name that a screen reader says.
class CDialogTemplateMaker
{
public:
    /// The text must hold one dialog, and have been checked.
    static CDialogTemplate Make(std::u16string_view text);

private:
    static void TakeDialog(const CDialogLine& line, CDialogTemplate& dialog);
    static CDialogTemplateItem MakeItem(const CControlLine& line);
};

} // namespace utility
