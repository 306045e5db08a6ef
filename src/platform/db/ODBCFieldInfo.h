#pragma once

#include "platform/base/String.h"
#include "platform/db/OdbcTypes.h"

#include <cstdint>

namespace utility
{

/// A result column as its driver describes it.
struct CODBCFieldInfo
{
    CString m_strName;

    /// In the classic numbering: a driver's 91 to 93 arrive as 9 to 11, a GUID and the intervals as
    /// SQL_VARCHAR.
    short m_nSQLType = 0;

    /// Characters of a text, bytes of a binary, digits of a number; 0 where the driver does not
    /// tell.
    std::uint32_t m_nPrecision = 0;

    /// Digits behind the decimal point.
    short m_nScale = 0;

    short m_nNullability = SQL_NULLABLE_UNKNOWN;
};

} // namespace utility
