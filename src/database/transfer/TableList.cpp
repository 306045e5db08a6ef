#include "database/transfer/TableList.h"

#include "database/DBADatabase.h"
#include "database/ODBCRecordset.h"
#include "database/transfer/SourceKind.h"

#include <algorithm>

namespace utility
{

namespace
{

const char16_t* QueryOf(ESourceKind kind)
{
    switch (kind)
    {
    case ESourceKind::SQLite:
        return u"SELECT [name] FROM sqlite_master WHERE [type]='table' AND "
               u"substr([name],1,7)<>'sqlite_'";
    case ESourceKind::PostgreSQL:
        return u"SELECT tablename FROM pg_tables WHERE schemaname = ANY(current_schemas(false))";
    case ESourceKind::MariaDB:
        return u"SELECT table_name FROM information_schema.tables WHERE table_schema=DATABASE() "
               u"AND "
               u"table_type='BASE TABLE'";
    case ESourceKind::Other:
        break;
    }
    return nullptr;
}

} // namespace

std::vector<CString> ListTables(CDBADatabase& database)
{
    std::vector<CString> names;
    if (const char16_t* const query = QueryOf(FindSourceKind(database)))
    {
        CODBCRecordset rows(&database);
        for (rows.Open(query); !rows.IsEOF(); rows.MoveNext())
            names.push_back(rows.GetString(0));
    }
    else
    {
        CStringArray found;
        database.ReadTableNames(found);
        for (int index = 0; index < static_cast<int>(found.GetSize()); ++index)
            names.push_back(found[index]);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace utility
