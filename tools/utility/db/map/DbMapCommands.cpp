#include "database/DBADatabase.h"
#include "database/DBFieldMap.h"
#include "database/DBTableMap.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbWork.h"
#include "utility/db/map/DbMapChange.h"
#include "utility/db/map/DbMapOutput.h"
#include "utility/db/map/DbMaps.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char MAP_HELP[] =
    "show prints what the columns are mapped to, without TABLE the maps of all tables. set changes "
    "properties of the columns that --column names (map-to, load, show, critical, hyperlink) or, "
    "without it, of the table (key-field, part-name-field, visible). reset forgets what was set of "
    "those columns, or of the whole table.\n"
    "\n"
    "  utility db map set Parts --column VAL map-to=Value critical=yes\n"
    "  utility db map set Parts key-field=PART_NUMBER visible=yes\n"
    "\n"
    "A column that is not loaded is never read, one that is not shown is left out by 'utility db "
    "browse'. What a file holds of columns that a table no longer has stays and returns with them.";

int TellUsage(const CString& problem)
{
    PrintError(problem + u"; see 'utility db map --help'");
    return RESULT_USAGE;
}

int ShowMaps(const CCommandCall& call, const CDbSource& source, const CDbMaps& maps)
{
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     if (call.GetArguments().size() > 1)
                     {
                         CDBFieldMap map;
                         if (!maps.Load(database, call.GetArgument(1), map))
                             return RESULT_FAILURE;
                         PrintFieldMap(map, call.WantsJson());
                         return RESULT_OK;
                     }
                     CDBTableMap tables;
                     if (!maps.LoadAll(database, tables))
                         return RESULT_FAILURE;
                     PrintTableMap(tables, call.WantsJson());
                     return RESULT_OK;
                 });
}

int ChangeMap(const CCommandCall& call, const CDbSource& source, const CDbMaps& maps)
{
    const std::vector<CString> words(call.GetArguments().begin() + 2, call.GetArguments().end());
    std::vector<CMapChange> changes;
    if (words.empty())
        return TellUsage(u"a change is missing: PROPERTY=VALUE");
    if (!ReadMapChanges(words, call.Has("column"), changes))
        return RESULT_USAGE;
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     CDBFieldMap map;
                     if (!maps.Load(database, call.GetArgument(1), map))
                         return RESULT_FAILURE;
                     if (!MakeMapChanges(map, call.GetAll("column"), changes))
                         return RESULT_USAGE;
                     return maps.Save(map) ? RESULT_OK : RESULT_FAILURE;
                 });
}

int ResetMap(const CCommandCall& call, const CDbSource& source, const CDbMaps& maps)
{
    if (call.GetArguments().size() > 2)
        return TellUsage(u"reset takes no changes, but --column NAME");
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     CDBFieldMap map;
                     CDBFieldMap presets;
                     if (!maps.Load(database, call.GetArgument(1), map) ||
                         !maps.LoadPresets(database, call.GetArgument(1), presets))
                         return RESULT_FAILURE;
                     if (!ResetMapColumns(map, presets, call.GetAll("column")))
                         return RESULT_USAGE;
                     return maps.Save(map) ? RESULT_OK : RESULT_FAILURE;
                 });
}

int RunMap(const CCommandCall& call)
{
    const CString action = call.GetArgument(0);
    const CDbSource source = SourceToRead(call);
    const CDbMaps maps(source, call);
    if (action == u"show")
        return ShowMaps(call, source, maps);
    if (call.GetArguments().size() < 2)
        return TellUsage(action + u" needs a TABLE");
    if (!maps.HasFile())
        return RESULT_USAGE;
    return action == u"set" ? ChangeMap(call, source, maps) : ResetMap(call, source, maps);
}

} // namespace

std::vector<CCommand> DbMapCommands()
{
    std::vector<CCommandOption> options = FromOptions(MapOptions());
    options.push_back({"column", "NAME", "A column to set or reset", true});
    return {
        {"db",
         "map",
         "Show or change what the columns of a table are to the design tool",
         MAP_HELP,
         {{"ACTION", "What to do", EArity::One, {"show", "set", "reset"}},
          {"TABLE", "The table or view", EArity::Optional},
          {"CHANGE", "PROPERTY=VALUE, for set", EArity::Any}},
         options,
         RunMap,
         true},
    };
}

} // namespace utility
