#pragma once

#include "platform/base/Types.h"

namespace utility
{

class CString;

/// Rows that stay with their owner while a combo shows them (`CVComboBox`).
class IComboRows
{
public:
    virtual ~IComboRows() = default;

    virtual int GetCount() const = 0;
    /// For each row that is there.
    virtual CString GetText(int row) const = 0;
};

/// To a combo; lParam: the rows, or null to end showing them. Sent again when they have changed.
constexpr UINT CB_SETROWS = 0x0590;

} // namespace utility
