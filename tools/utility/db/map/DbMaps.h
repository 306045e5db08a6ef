#pragma once

#include "utility/command/Command.h"
#include "utility/db/DbSource.h"

namespace utility
{

class CDBADatabase;
class CDBFieldMap;
class CDBTableMap;

/// --map and --section: where the field maps of a source are kept.
std::vector<CCommandOption> MapOptions();

/// The field maps of a source's tables, in a file of XML settings.
///
/// The maps of a SQLite file stand beside it unless --map says otherwise: parts.map.xml for
/// parts.db. Those of any other source have no place of their own: without --map each column is a
/// new one. What the source refuses raises CDBException.
class CDbMaps
{
public:
    CDbMaps(const CDbSource& source, const CCommandCall& call);

    /// False, and the reason is told, if there is no file to keep maps in.
    [[nodiscard]] bool HasFile() const;

    /// Brings the map in line with the table's columns, each with what was saved of it. False, and
    /// the reason is told, if table or file cannot be read.
    [[nodiscard]] bool Load(CDBADatabase& database, const CString& table, CDBFieldMap& map) const;

    /// The same for all tables and views of the source; one that cannot be read is marked as
    /// unuseable. In any case of letters a name counts once.
    [[nodiscard]] bool LoadAll(CDBADatabase& database, CDBTableMap& tables) const;

    /// The columns as if nothing had been saved.
    [[nodiscard]] bool LoadPresets(CDBADatabase& database, const CString& table,
                                   CDBFieldMap& map) const;

    /// False, and the reason is told, if the file does not hold the map afterwards.
    [[nodiscard]] bool Save(const CDBFieldMap& map) const;

private:
    bool IsFileReadable() const;

    CString m_File; // in classic form; empty: none
    CString m_Section;
};

/// The names of a map's columns, in table order.
std::vector<CString> ColumnNames(const CDBFieldMap& map);

} // namespace utility
