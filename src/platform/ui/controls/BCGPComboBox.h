#pragma once

#include "platform/ui/controls/ComboBox.h"

namespace utility
{

/// A combo that follows the look of the visual manager; the desktop's style draws both alike.
class UTILITY_UI_API CBCGPComboBox : public CComboBox
{
    DECLARE_DYNAMIC(CBCGPComboBox)
};

} // namespace utility
