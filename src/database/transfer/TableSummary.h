#pragma once

#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"
#include "platform/db/DbValue.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace utility
{

/// How many rows a table has, and a checksum over all their values; alike for the same rows in any
/// order and in any source.
///
/// The checksum is the sum, modulo 2^64, of one mixed FNV-1a number a row. It tells a copy from the
/// original but for chance; against somebody who plans it, it proves nothing.
class UTILITY_CORE_API CTableSummary
{
public:
    /// `columns` are those of the first source: what its values are counts, also where another one
    /// holds them as texts.
    explicit CTableSummary(const std::vector<CTransferColumn>& columns) : m_Columns(columns) {}

    void Add(std::span<const CDbValue> values);

    std::int64_t GetRowCount() const { return m_RowCount; }
    std::uint64_t GetChecksum() const { return m_Checksum; }

    bool IsSame(const CTableSummary& other) const
    {
        return m_RowCount == other.m_RowCount && m_Checksum == other.m_Checksum;
    }

private:
    std::vector<CTransferColumn> m_Columns;
    std::int64_t m_RowCount = 0;
    std::uint64_t m_Checksum = 0;
    std::string m_Text;
};

} // namespace utility
