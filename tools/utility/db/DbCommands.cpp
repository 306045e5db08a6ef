#include "database/DBADatabase.h"
#include "platform/system/Clock.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbCatalogue.h"
#include "utility/db/DbWork.h"
#include "utility/db/query/DbQuery.h"
#include "utility/db/query/QueryOutput.h"
#include "utility/db/stock/PassiveTable.h"
#include "utility/db/stock/SymbolImport.h"
#include "utility/output/RowProgress.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char QUERY_HELP[] =
    "Operators: Equal to, Not equal to, Greater than, Greater than or equal to, Less "
    "than, Less than or equal to, Begins with, Does not begin with, Contains, Does "
    "not contain, Between, Is not between. The two ranges take two values: "
    "'Value|Between|4k7|10k'. With --parse Value=resistor 4k7, 4.7K and 4700 are one "
    "value; a cell without a value does not match. Ends with 1 if no row matches.";

// Import

void PrintImport(const CSymbolImport& import, std::uint64_t milliseconds)
{
    const CRowChanges& changes = import.GetChanges();
    CString line;
    line.Format(u"%I64d symbols in %d %s, %I64d rows changed", import.GetSymbolCount(),
                static_cast<int>(import.GetLibraryCount()),
                import.GetLibraryCount() == 1 ? u"library" : u"libraries", changes.GetTotal());
    if (changes.GetTotal() > 0)
        line.AppendFormat(u" (%I64d added, %I64d mended, %I64d deleted)", changes.m_Added,
                          changes.m_Changed, changes.m_Deleted);
    line.AppendFormat(u", %d ms, %I64d rows/s", static_cast<int>(milliseconds),
                      RowsPerSecond(import.GetSymbolCount(), milliseconds));
    PrintLine(line);
}

void PrintImportJson(const CSymbolImport& import, std::uint64_t milliseconds)
{
    CJsonWriter json;
    json.BeginObject();
    json.Key(u"libraries");
    json.Number(static_cast<std::int64_t>(import.GetLibraryCount()));
    json.Key(u"symbols");
    json.Number(import.GetSymbolCount());
    json.Key(u"added");
    json.Number(import.GetChanges().m_Added);
    json.Key(u"changed");
    json.Number(import.GetChanges().m_Changed);
    json.Key(u"deleted");
    json.Number(import.GetChanges().m_Deleted);
    json.Key(u"milliseconds");
    json.Number(static_cast<std::int64_t>(milliseconds));
    json.EndObject();
    json.Flush();
    PrintBytes("\n");
}

int ImportSymbols(const CCommandCall& call)
{
    const std::uint64_t start = GetTickCount();
    CSymbolImport import;
    if (!import.Check(call.GetArgument(0)))
        return RESULT_FAILURE;
    return RunOn(SourceToFill(call), EDbUse::Fill,
                 [&](CDBADatabase& database)
                 {
                     if (!import.Store(database))
                         return RESULT_FAILURE;
                     const std::uint64_t time = GetTickCount() - start;
                     call.WantsJson() ? PrintImportJson(import, time) : PrintImport(import, time);
                     return RESULT_OK;
                 });
}

int MakePassives(const CCommandCall& call)
{
    const std::uint64_t start = GetTickCount();
    return RunOn(SourceToFill(call), EDbUse::Fill,
                 [&](CDBADatabase& database)
                 {
                     const std::vector<CPassive> stock = MakePassiveStock();
                     if (!StorePassives(database, stock))
                     {
                         PrintError(u"interrupted: 'Passives' is as it was");
                         return RESULT_FAILURE;
                     }
                     CString line;
                     line.Format(u"%d rows in 'Passives', %d ms", static_cast<int>(stock.size()),
                                 static_cast<int>(GetTickCount() - start));
                     PrintLine(line);
                     return RESULT_OK;
                 });
}

// Looking

int ListTables(const CCommandCall& call)
{
    return RunOn(SourceToRead(call), EDbUse::Read,
                 [&](CDBADatabase& database)
                 { return PrintTables(database, call.WantsJson()) ? RESULT_OK : RESULT_FAILURE; });
}

int ListFields(const CCommandCall& call)
{
    return RunOn(SourceToRead(call), EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     PrintFields(database, call.GetArgument(0), call.WantsJson());
                     return RESULT_OK;
                 });
}

void PrintQuery(CDbQuery& query, const CCommandCall& call)
{
    if (call.WantsJson())
        PrintQueryJson(query);
    else if (call.Has("csv"))
        PrintQueryCsv(query);
    else
        PrintQueryTable(query);
}

void TellColumnWithoutRule(const CString& column)
{
    if (!column.IsEmpty())
        PrintError(u"no rule says what the texts of '" + column +
                   u"' mean: see --parse, 'utility db rules', and --match for texts");
}

int Query(const CCommandCall& call)
{
    const CDbSource source = SourceToRead(call);
    const CDbRules rules(source, call.GetArgument(0));
    const std::optional<CQueryOptions> options = ReadQueryOptions(call, rules.GetAll());
    if (!options)
        return RESULT_USAGE;
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     CDbQuery query(database, *options);
                     switch (query.Run())
                     {
                     case EQueryEnd::NoColumn:
                         return RESULT_USAGE;
                     case EQueryEnd::Stopped:
                         PrintError(u"interrupted");
                         return RESULT_FAILURE;
                     case EQueryEnd::Done:
                         break;
                     }
                     PrintQuery(query, call);
                     TellColumnWithoutRule(query.FindColumnWithoutRule());
                     return query.GetMatchCount() > 0 ? RESULT_OK : RESULT_NO;
                 });
}

} // namespace

std::vector<CCommand> DbCommands()
{
    return {
        {"db",
         "import-symbols",
         "Bring a folder of schematic symbol libraries into table Symbols",
         "Reads all *.kicad_sym files of the folder, one row for each symbol. All files "
         "are checked first; one with a fault is named with line and column, and nothing "
         "is stored. A second import writes only what differs. Symbols that a file no "
         "longer has are deleted. Ctrl-C leaves whole libraries.",
         {{"FOLDER", "The folder of the libraries"}},
         IntoOptions(),
         ImportSymbols,
         true},
        {"db",
         "make-passives",
         "Fill table Passives with a stock of resistors, capacitors and inductors",
         "Always the same parts, with values as people write them: 4k7, 4.7K, 4700. Rows "
         "that stand there are replaced, all at once.",
         {},
         IntoOptions(),
         MakePassives,
         true},
        {"db",
         "tables",
         "List the tables and views of a database",
         "",
         {},
         FromOptions(),
         ListTables,
         true},
        {"db",
         "fields",
         "List the columns of a table",
         "",
         {{"TABLE", "The table or view"}},
         FromOptions(),
         ListFields,
         true},
        {"db",
         "query",
         "Show the rows of a table that match, by the values their texts mean",
         QUERY_HELP,
         {{"TABLE", "The table or view"}},
         FromOptions(
             {{"where", "TEST", "'COLUMN|OPERATOR|VALUE', see above; all must hold", true},
              {"match", "TEST", "'COLUMN|PATTERN' with the wildcards of 'utility match'", true},
              {"parse", "COLUMN=TYPE",
               "What the texts of a column mean: capacitor, resistor, inductor, any or number",
               true},
              {"sort", "COLUMN", "Numbers by value first, then texts as names are sorted"},
              {"descending", "", "Sort downwards"},
              {"columns", "LIST", "Only these columns, commas between them"},
              NumberOption("limit", "COUNT", "Only so many rows"),
              {"csv", "", "Print lines of values with commas between"}}),
         Query,
         true},
    };
}

} // namespace utility
