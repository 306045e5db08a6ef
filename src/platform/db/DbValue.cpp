#include "platform/db/DbValue.h"

#include "platform/db/OdbcTypes.h"

namespace utility
{

EValueKind ValueKindOf(short sqlType)
{
    switch (sqlType)
    {
    case SQL_BIT:
        return EValueKind::Bit;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
        return EValueKind::Integer;
    case SQL_REAL:
        return EValueKind::Single;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return EValueKind::Real;
    case SQL_DATE:
    case SQL_TIME:
    case SQL_TIMESTAMP:
        return EValueKind::Date;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return EValueKind::Binary;
    default:
        return sqlType == 0 || sqlType < SQL_WLONGVARCHAR || sqlType > SQL_VARCHAR
                   ? EValueKind::None
                   : EValueKind::Text;
    }
}

} // namespace utility
