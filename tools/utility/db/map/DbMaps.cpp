#include "utility/db/map/DbMaps.h"

#include "database/DBADatabase.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/DBTableMap.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "settings/xml/XMLSettings.h"

#include "utility/db/DbCatalogue.h"
#include "utility/db/DbColumns.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr char16_t PRESET_SECTION[] = u"Utility";

bool AreSame(const CDBFieldMap& left, const CDBFieldMap& right)
{
    for (int index = 0; index < left.GetCount(); index++)
        if (!(*left.GetField(index) == *right.GetField(index)))
            return false;
    return left.GetKeyField() == right.GetKeyField() &&
           left.GetPartNameField() == right.GetPartNameField() &&
           left.GetTableVisible() == right.GetTableVisible();
}

/// Also of a table with brackets in its name.
bool ReadFields(CDBADatabase& database, const CString& table, CDBFieldMap& map)
{
    database.SetTableSql(table, u"SELECT * FROM " + DelimitTable(database, table));
    return database.ReadFieldNames(table, map);
}

} // namespace

std::vector<CCommandOption> MapOptions()
{
    return {{"map", "FILE",
             "Where field maps are kept; beside a SQLite file if not given: parts.map.xml for "
             "parts.db"},
            {"section", "NAME", "The section of that file; Utility if not given"}};
}

CDbMaps::CDbMaps(const CDbSource& source, const CCommandCall& call)
    : m_File(ClassicPath(ToUtf8(call.Get("map", source.GetMapFile()).View()))),
      m_Section(call.Get("section", PRESET_SECTION))
{
}

bool CDbMaps::HasFile() const
{
    if (m_File.IsEmpty())
        PrintError(u"the field maps of this source need a file: --map FILE");
    return !m_File.IsEmpty();
}

// A map takes a file that it cannot read for none, and would not write over it either.
bool CDbMaps::IsFileReadable() const
{
    CFileStatus status;
    if (m_File.IsEmpty() || !CFile::GetStatus(m_File, status))
        return true;
    CXMLSettings settings;
    if (settings.LoadXML(m_File) && !settings.HasParseError())
        return true;
    PrintError(NativePath(m_File) + u": this is no readable file of field maps");
    return false;
}

bool CDbMaps::Load(CDBADatabase& database, const CString& table, CDBFieldMap& map) const
{
    if (!IsFileReadable() || !LoadPresets(database, table, map))
        return false;
    map.LoadSettings(m_File, m_Section, table);
    return true;
}

bool CDbMaps::LoadAll(CDBADatabase& database, CDBTableMap& tables) const
{
    std::vector<CString> names;
    if (!IsFileReadable() || !ReadTableNames(database, names))
        return false;
    for (const CString& name : names)
    {
        CDBFieldMap*& map = tables[name];
        if (map)
            continue; // a name in other letters shares its settings
        map = new CDBFieldMap;
        map->SetTableUnuseable(!ReadFields(database, name, *map));
        map->LoadSettings(m_File, m_Section, name);
    }
    return true;
}

bool CDbMaps::LoadPresets(CDBADatabase& database, const CString& table, CDBFieldMap& map) const
{
    ReadColumnNames(database, table); // raises in the driver's words, where the next only fails
    if (!ReadFields(database, table, map))
    {
        PrintError(database.GetErrorDetails());
        return false;
    }
    map.LoadSettings(CString(), m_Section, table);
    return true;
}

bool CDbMaps::Save(const CDBFieldMap& map) const
{
    map.SaveSettings();
    CDBFieldMap saved(map);
    saved.SetKeyField(CString()); // what is not found would stay
    saved.SetPartNameField(CString());
    saved.SetTableVisible(false);
    saved.LoadSettings(m_File, m_Section, map.GetTableName());
    if (IsFileReadable() && AreSame(map, saved))
        return true;
    PrintError(NativePath(m_File) + u": the field map could not be written");
    return false;
}

std::vector<CString> ColumnNames(const CDBFieldMap& map)
{
    std::vector<CString> names;
    for (int index = 0; index < map.GetCount(); index++)
        names.push_back(map.GetField(index)->GetName());
    return names;
}

} // namespace utility
