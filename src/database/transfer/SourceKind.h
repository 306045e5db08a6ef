#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CDatabase;

/// The sources whose types and limits are known.
enum class ESourceKind : BYTE
{
    SQLite,
    PostgreSQL,
    MariaDB,
    Other
};

/// What an open connection leads to, as its driver says; not to be confused with `GetDbType`, which
/// is read from the connect string.
UTILITY_CORE_API ESourceKind FindSourceKind(const CDatabase& database);

} // namespace utility
