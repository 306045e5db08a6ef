#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// A row on its way to being ordered by one column: the cell's text, its value and the row's
/// number.
struct CValueOrderKey
{
    CString m_Text;
    double m_Number = 0;
    bool m_IsNumeric = false;
    DWORD m_Record = 0;
};

/// A cell read by the rules of its column's parse type, suited letters or not.
UTILITY_CORE_API CValueOrderKey MakeValueOrderKey(const CString& text, int parseType, DWORD record);

/// The order of two rows: below, above or 0.
///
/// Numbers stand before texts when ascending, numbers by value, texts as names are compared. Equal
/// ones stand by row number, rising in both directions: 1 if the left one's is greater, else 0.
/// Names can go round in a circle, so only a merge sort may use this.
UTILITY_CORE_API int CompareValueOrder(const CValueOrderKey& left, const CValueOrderKey& right,
                                       bool ascending);

} // namespace utility
