#include "utility/db/map/DbMapOutput.h"

#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/DBTableMap.h"

#include "utility/db/map/DbMapChange.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

CString YesOrNo(bool value)
{
    return value ? u"yes" : u"no";
}

CString Decimal(int number)
{
    CString text;
    text.Format(u"%d", number);
    return text;
}

CString Capitalised(CString name)
{
    CString first = name.Left(1);
    first.MakeUpper();
    return first + name.Mid(1);
}

void WriteTableProperties(CJsonWriter& json, const CDBFieldMap& map)
{
    json.Field(u"table", map.GetTableName());
    json.Field(u"key-field", map.GetKeyField());
    json.Field(u"part-name-field", map.GetPartNameField());
    json.Key(u"visible");
    json.Bool(map.GetTableVisible());
}

void PrintFieldMapJson(const CDBFieldMap& map)
{
    CJsonWriter json;
    json.BeginObject();
    WriteTableProperties(json, map);
    json.Key(u"columns");
    json.BeginArray();
    for (int index = 0; index < map.GetCount(); index++)
    {
        const CDBFInfo& column = *map.GetField(index);
        json.BeginObject();
        json.Field(u"name", column.GetName());
        json.Field(u"map-to", column.GetMapTo());
        for (const CColumnFlag& flag : ColumnFlags())
        {
            json.Key(flag.m_Name);
            json.Bool((column.*flag.m_Get)());
        }
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    json.Flush();
    PrintBytes("\n");
}

/// The maps by the names of their tables, sorted.
std::vector<const CDBFieldMap*> SortedMaps(const CDBTableMap& maps)
{
    std::vector<const CDBFieldMap*> list;
    for (POSITION position = maps.GetStartPosition(); position;)
    {
        CString name;
        CDBFieldMap* map = nullptr;
        maps.GetNextAssoc(position, name, map);
        list.push_back(map);
    }
    std::sort(list.begin(), list.end(),
              [](const CDBFieldMap* left, const CDBFieldMap* right)
              { return left->GetTableName() < right->GetTableName(); });
    return list;
}

void PrintTableMapJson(const CDBTableMap& maps)
{
    CJsonWriter json;
    json.BeginArray();
    for (const CDBFieldMap* map : SortedMaps(maps))
    {
        json.BeginObject();
        WriteTableProperties(json, *map);
        json.Key(u"readable");
        json.Bool(!map->GetTableUnuseable());
        json.Key(u"columns");
        json.Number(map->GetCount());
        json.Key(u"loaded");
        json.Number(map->GetLoadedCount());
        json.EndObject();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

} // namespace

void PrintFieldMap(const CDBFieldMap& map, bool json)
{
    if (json)
        return PrintFieldMapJson(map);
    CTextTable table;
    table.AddColumn(u"Column");
    table.AddColumn(u"Map-to");
    for (const CColumnFlag& flag : ColumnFlags())
        table.AddColumn(Capitalised(flag.m_Name));
    for (int index = 0; index < map.GetCount(); index++)
    {
        const CDBFInfo& column = *map.GetField(index);
        std::vector<CString> cells = {column.GetName(), column.GetMapTo()};
        for (const CColumnFlag& flag : ColumnFlags())
            cells.push_back(YesOrNo((column.*flag.m_Get)()));
        table.AddRow(cells);
    }
    table.Print();
    PrintLine(CString());
    PrintLine((u"Key-field: " + map.GetKeyField()).TrimRight());
    PrintLine((u"Part-name-field: " + map.GetPartNameField()).TrimRight());
    PrintLine(u"Visible: " + YesOrNo(map.GetTableVisible()));
}

void PrintTableMap(const CDBTableMap& maps, bool json)
{
    if (json)
        return PrintTableMapJson(maps);
    CTextTable table;
    table.AddColumn(u"Table");
    table.AddColumn(u"Columns", CTextTable::EAlign::Right);
    table.AddColumn(u"Loaded", CTextTable::EAlign::Right);
    table.AddColumn(u"Key-field");
    table.AddColumn(u"Part-name-field");
    table.AddColumn(u"Visible");
    for (const CDBFieldMap* map : SortedMaps(maps))
    {
        const bool isReadable = !map->GetTableUnuseable();
        table.AddRow({map->GetTableName(), isReadable ? Decimal(map->GetCount()) : u"unreadable",
                      isReadable ? Decimal(map->GetLoadedCount()) : CString(), map->GetKeyField(),
                      map->GetPartNameField(), YesOrNo(map->GetTableVisible())});
    }
    table.Print();
}

} // namespace utility
