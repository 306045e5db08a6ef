#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CDBFInfo;
class CDBFieldMap;

/// A property of columns that is yes or no.
struct CColumnFlag
{
    const char16_t* m_Name;
    bool (CDBFInfo::*m_Get)() const;
    void (CDBFInfo::*m_Set)(bool value);
};

/// load, show, critical and hyperlink.
const std::vector<CColumnFlag>& ColumnFlags();

/// A change of a field map: "map-to=Value".
struct CMapChange
{
    CString m_Property;
    CString m_Value;
};

/// Reads and checks the words of `db map set` before anything is opened; false, and the reason is
/// told, if one is wrong.
///
///     of columns      map-to=TEXT, load=yes, show=no, critical=yes, hyperlink=no
///     of the table    key-field=COLUMN, part-name-field=COLUMN, visible=yes; a field may be empty
bool ReadMapChanges(const std::vector<CString>& words, bool isOfColumns,
                    std::vector<CMapChange>& changes);

/// Changes the columns, or the table where none is named. False, and the reason is told, if the
/// table has no such column; then the map is half changed.
bool MakeMapChanges(CDBFieldMap& map, const std::vector<CString>& columns,
                    const std::vector<CMapChange>& changes);

/// Puts the columns, or the table where none is named, back to the presets. False, and the reason
/// is told, if the table has no such column.
bool ResetMapColumns(CDBFieldMap& map, const CDBFieldMap& presets,
                     const std::vector<CString>& columns);

} // namespace utility
