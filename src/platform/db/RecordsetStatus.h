#pragma once

#include "platform/base/Types.h"

#include <cstdint>

namespace utility
{

/// Where a recordset stands.
struct CRecordsetStatus
{
    /// From 0; 0 also before the first row, the last row's number also behind it.
    std::int32_t m_lCurrentRecord = 0;

    /// Not 0 once the end of the rows was seen, so that the count will not grow any more.
    BOOL m_bRecordCountFinal = FALSE;
};

} // namespace utility
