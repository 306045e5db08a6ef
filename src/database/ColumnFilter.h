#pragma once

#include "database/DBClientFilter.h"
#include "platform/base/Types.h"
#include "platform/db/PagedArray.h"

#include <cstddef>
#include <string>

namespace utility
{

class CColumnNumbers;
class CSnapshotColumn;
struct CDbValue;

/// A client filter bound to a column of a snapshot: the verdicts of IsMatch on the cells' texts,
/// but each value is judged once. Filter, column and numbers must live on.
class CColumnFilter
{
public:
    /// The numbers are the column's by the filter's parse type.
    CColumnFilter(const CDBClientFilter& filter, CColumnNumbers& numbers);

    bool IsMatch(std::size_t row);

    /// The verdict on NULL, which a deleted row holds in every column.
    bool IsNullMatch() const { return m_IsNullMatch; }

private:
    enum class ETextVerdict : BYTE
    {
        Unknown,
        No,
        Yes
    };

    bool IsTextMatch(std::size_t number);
    std::u16string_view LowerText(const CDbValue& value);

    const CDBClientFilter& m_Filter;
    CColumnNumbers& m_Numbers;
    const CSnapshotColumn& m_Column;
    bool m_IsNullMatch;
    CPagedArray<ETextVerdict> m_TextVerdicts; // by the number of the value
    std::u16string m_Lowered;                 // the last text judged
};

} // namespace utility
