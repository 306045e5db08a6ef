#include "platform/ui/controls/BCGPComboBox.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CBCGPComboBox, CComboBox)

} // namespace utility
