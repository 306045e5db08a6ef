#include "database/transfer/SourceKind.h"

#include "platform/db/Database.h"
#include "platform/db/Driver.h"

namespace utility
{

ESourceKind FindSourceKind(const CDatabase& database)
{
    constexpr struct
    {
        const char16_t* Name;
        ESourceKind Kind;
    } KINDS[] = {{u"SQLite", ESourceKind::SQLite},
                 {u"PostgreSQL", ESourceKind::PostgreSQL},
                 {u"MariaDB", ESourceKind::MariaDB}};
    const CString name = database.m_hdbc->ReadFacts().DbmsName;
    for (const auto& row : KINDS)
        if (name.View().starts_with(row.Name))
            return row.Kind;
    return ESourceKind::Other;
}

} // namespace utility
