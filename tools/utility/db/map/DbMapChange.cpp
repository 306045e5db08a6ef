#include "utility/db/map/DbMapChange.h"

#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "platform/base/Encoding.h"

#include "utility/command/WordHint.h"
#include "utility/db/DbColumns.h"
#include "utility/db/map/DbMaps.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr char16_t MAP_TO[] = u"map-to";
constexpr char16_t VISIBLE[] = u"visible";

/// A property of the table that names a column.
struct CTableField
{
    const char16_t* m_Name;
    bool (CDBFieldMap::*m_Set)(const CString& name);
};

constexpr CTableField TABLE_FIELDS[] = {
    {u"key-field", &CDBFieldMap::SetKeyField},
    {u"part-name-field", &CDBFieldMap::SetPartNameField},
};

template <typename TList>
auto FindNamed(const TList& list, const CString& name)
{
    return std::find_if(std::begin(list), std::end(list),
                        [&](const auto& entry) { return name == entry.m_Name; });
}

bool IsColumnFlag(const CString& property)
{
    return FindNamed(ColumnFlags(), property) != ColumnFlags().end();
}

bool IsOfColumns(const CString& property)
{
    return property == MAP_TO || IsColumnFlag(property);
}

bool IsOfTable(const CString& property)
{
    return property == VISIBLE || FindNamed(TABLE_FIELDS, property) != std::end(TABLE_FIELDS);
}

bool Refuse(const CString& reason)
{
    PrintError(reason);
    return false;
}

bool RefuseProperty(const CString& property)
{
    std::vector<std::string> known = {ToUtf8(MAP_TO), ToUtf8(VISIBLE)};
    for (const CColumnFlag& flag : ColumnFlags())
        known.push_back(ToUtf8(flag.m_Name));
    for (const CTableField& field : TABLE_FIELDS)
        known.push_back(ToUtf8(field.m_Name));
    const std::string meant = NearestWord(ToUtf8(property.View()), known);
    const CString hint = meant.empty() ? CString() : u", did you mean '" + FromUtf8(meant) + u"'?";
    return Refuse(u"there is no property '" + property + u"'" + hint);
}

/// Whether the change can be made, whatever columns there are.
bool IsSound(const CMapChange& change, bool isOfColumns)
{
    const CString& property = change.m_Property;
    if (!IsOfColumns(property) && !IsOfTable(property))
        return RefuseProperty(property);
    if (isOfColumns && !IsOfColumns(property))
        return Refuse(u"'" + property + u"' is the table's: leave --column out");
    if (!isOfColumns && !IsOfTable(property))
        return Refuse(u"'" + property + u"' is a column's: name it by --column");
    const bool isFlag = property == VISIBLE || IsColumnFlag(property);
    return !isFlag || change.m_Value == u"yes" || change.m_Value == u"no" ||
           Refuse(u"'" + property + u"' takes yes or no, not '" + change.m_Value + u"'");
}

bool HasColumns(const CDBFieldMap& map, const std::vector<CString>& columns)
{
    for (const CString& column : columns)
    {
        if (map.FindField(column))
            continue;
        TellNoColumn(map.GetTableName(), column, ColumnNames(map));
        return false;
    }
    return true;
}

void ChangeColumn(CDBFInfo& column, const CMapChange& change)
{
    if (change.m_Property == MAP_TO)
        return column.SetMapTo(change.m_Value);
    (column.*FindNamed(ColumnFlags(), change.m_Property)->m_Set)(change.m_Value == u"yes");
}

bool ChangeTable(CDBFieldMap& map, const CMapChange& change)
{
    if (change.m_Property == VISIBLE)
    {
        map.SetTableVisible(change.m_Value == u"yes");
        return true;
    }
    if (!change.m_Value.IsEmpty() && !HasColumns(map, {change.m_Value}))
        return false;
    return (map.*FindNamed(TABLE_FIELDS, change.m_Property)->m_Set)(change.m_Value);
}

} // namespace

const std::vector<CColumnFlag>& ColumnFlags()
{
    static const std::vector<CColumnFlag> flags = {
        {u"load", &CDBFInfo::GetLoad, &CDBFInfo::SetLoad},
        {u"show", &CDBFInfo::GetShow, &CDBFInfo::SetShow},
        {u"critical", &CDBFInfo::GetCritical, &CDBFInfo::SetCritical},
        {u"hyperlink", &CDBFInfo::GetHyperlink, &CDBFInfo::SetHyperlink},
    };
    return flags;
}

bool ReadMapChanges(const std::vector<CString>& words, bool isOfColumns,
                    std::vector<CMapChange>& changes)
{
    for (const CString& word : words)
    {
        const int equals = word.Find(u'=');
        if (equals < 1)
            return Refuse(u"'" + word + u"' is no change: PROPERTY=VALUE");
        const CMapChange change = {word.Left(equals), word.Mid(equals + 1)};
        if (!IsSound(change, isOfColumns))
            return false;
        changes.push_back(change);
    }
    return true;
}

bool MakeMapChanges(CDBFieldMap& map, const std::vector<CString>& columns,
                    const std::vector<CMapChange>& changes)
{
    if (!HasColumns(map, columns))
        return false;
    for (const CMapChange& change : changes)
    {
        if (columns.empty() && !ChangeTable(map, change))
            return false;
        for (const CString& column : columns)
            ChangeColumn(*map.FindField(column), change);
    }
    return true;
}

bool ResetMapColumns(CDBFieldMap& map, const CDBFieldMap& presets,
                     const std::vector<CString>& columns)
{
    if (!HasColumns(map, columns))
        return false;
    for (const CString& column : columns.empty() ? ColumnNames(map) : columns)
        *map.FindField(column) = *presets.FindField(column);
    if (!columns.empty())
        return true;
    map.SetKeyField(CString());
    map.SetPartNameField(CString());
    map.SetTableVisible(false);
    return true;
}

} // namespace utility
