#pragma once

#include "platform/ui/controls/BCGPComboBox.h"

namespace utility
{

class IComboRows;

/// A combo over rows held by its owner: nothing is copied, so that a million rows cost nothing.
///
/// The calls of `CComboBox` that read, find and select work as ever; those that add, insert or
/// delete rows answer CB_ERR while rows are shown. A row's item data is its number.
class UTILITY_UI_API CVComboBox : public CBCGPComboBox
{
    DECLARE_DYNAMIC(CVComboBox)

public:
    /// The rows must live until others, or null, are set. To be called again, with the same rows,
    /// after their number or texts have changed; the selection is then gone.
    void SetRows(const IComboRows* rows);
};

} // namespace utility
