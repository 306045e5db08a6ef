#pragma once

#include "platform/backend/odbc/ColumnBuffer.h"
#include "platform/backend/odbc/DriverQuirks.h"
#include "platform/base/Types.h"

#include <cstddef>
#include <span>
#include <vector>

namespace utility
{

/// The forward fetch of one executed statement, in row sets, into a snapshot.
class COdbcCursor
{
public:
    COdbcCursor(void* statement, const CDriverQuirks& quirks)
        : m_Statement(statement),
          m_Quirks(quirks)
    {
    }
    COdbcCursor(const COdbcCursor&) = delete;
    COdbcCursor& operator=(const COdbcCursor&) = delete;

    RETCODE Bind(std::span<const CColumnLayout> layouts, std::span<const CODBCFieldInfo> columns);
    RETCODE Fetch(CSnapshotStore& store);
    void Unbind();

private:
    std::size_t ChooseRowSet(std::span<const CColumnLayout> layouts,
                             std::span<const CODBCFieldInfo> columns, bool& mayGrow) const;
    RETCODE StoreColumn(std::size_t index, std::size_t rows, CSnapshotStore& store);
    RETCODE Reread(std::size_t index, std::size_t row, CSnapshotColumn& column);
    RETCODE ReadLongBytes(std::size_t index, short carrier, std::size_t wanted, bool& isWhole);

    void* m_Statement;
    const CDriverQuirks& m_Quirks;
    std::vector<CColumnBuffer> m_Buffers;
    std::size_t m_RowSet = 1;
    unsigned long m_Fetched = 0;
    std::vector<char> m_Long; // a value that was read again
};

} // namespace utility
