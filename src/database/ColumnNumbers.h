#pragma once

#include "platform/base/Types.h"
#include "platform/db/PagedArray.h"
#include "platform/db/SnapshotStore.h"

#include <cstddef>

namespace utility
{

/// What a cell's text stands for, as CDBFieldRules::GetNumericValue tells it.
struct CCellNumber
{
    int m_Result = 0; // 0 no number, 1 its letters do not suit, 2 suits
    double m_Number = 0;

    bool IsNumeric() const { return m_Result != 0; }
};

/// Reads the number of any cell.
CCellNumber ReadCellNumber(const CDbValue& value, int parseType);

/// The numbers that the values of a snapshot's column stand for by one parse type. Each value is
/// read once, when it is first asked for, however many rows hold it and however often they are
/// filtered and ordered. The column must live on.
class CColumnNumbers
{
public:
    CColumnNumbers(const CSnapshotColumn& column, int parseType)
        : m_Column(column),
          m_ParseType(parseType)
    {
    }

    /// By the number of the value in the column, see CSnapshotColumn::GetNumber.
    CCellNumber Get(std::size_t number)
    {
        if (number >= m_Results.GetSize() || m_Results[number] == UNREAD)
            Read(number);
        return {m_Results[number], m_Numbers[number]};
    }

    const CSnapshotColumn& GetColumn() const { return m_Column; }
    int GetParseType() const { return m_ParseType; }

private:
    static constexpr BYTE UNREAD = 0xFF;

    void Read(std::size_t number);

    const CSnapshotColumn& m_Column;
    int m_ParseType;
    CPagedArray<double> m_Numbers;
    CPagedArray<BYTE> m_Results;
};

} // namespace utility
