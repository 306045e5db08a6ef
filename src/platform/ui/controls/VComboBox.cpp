#include "platform/ui/controls/VComboBox.h"

#include "platform/ui/controls/ComboRows.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CVComboBox, CBCGPComboBox)

void CVComboBox::SetRows(const IComboRows* rows)
{
    SendMessage(CB_SETROWS, 0, reinterpret_cast<LPARAM>(rows));
}

} // namespace utility
