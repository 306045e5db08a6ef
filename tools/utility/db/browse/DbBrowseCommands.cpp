#include "database/DBADatabase.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbWork.h"
#include "utility/db/browse/Browser.h"
#include "utility/db/browse/RowPrinter.h"
#include "utility/db/browse/TerminalScreen.h"
#include "utility/db/map/DbMaps.h"
#include "utility/db/map/DbRules.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr DWORD STEP_TIME = 30; // milliseconds between two looks at the keys

constexpr char BROWSE_HELP[] =
    "A pager: the arrow keys and Page Up, Page Down, Home and End move, ? shows all keys, q quits. "
    "The columns are those that 'utility db map' loads and shows, by what they are mapped to. / "
    "shows only rows that pass a test, s sorts, both by values where 'utility db rules' says what "
    "a column holds:\n"
    "\n"
    "  Value between 4k7 10k    Stock >= 100    Name begins R06    R06\n"
    "\n"
    "Words without a column before them are looked for in all columns. Rows are read as far as "
    "they "
    "are looked at, and further while nobody presses a key. Where the output is no terminal all "
    "rows are printed as a table.";

void ApplyRules(const CDbRules& rules, CDBFieldMap& map)
{
    for (const CColumnRule& rule : rules.GetAll())
        if (CDBFInfo* const column = map.FindField(rule.m_Column))
            column->SetParseType(static_cast<DWORD>(rule.m_Type));
}

int BrowseOnTerminal(CBrowser& browser)
{
    CTerminalScreen screen;
    if (!screen.IsOpen())
    {
        PrintError(u"a terminal of this kind (TERM) cannot show a screen; '| cat' prints the rows");
        return RESULT_FAILURE;
    }
    browser.Resize(screen.GetLines(), screen.GetWidth());
    bool isBusy = browser.Work(STEP_TIME);
    while (!browser.IsDone())
    {
        screen.Draw(browser.Compose());
        const CScreenKey key = screen.ReadKey(!isBusy);
        if (key.m_Key == EKey::Resize)
            browser.Resize(screen.GetLines(), screen.GetWidth());
        browser.HandleKey(key);
        isBusy = key.m_Key != EKey::None || browser.Work(STEP_TIME); // what a key did is seen first
    }
    return RESULT_OK;
}

/// Everything that the options ask for is done before the first row is printed.
int PrintAll(CBrowser& browser, CBrowseRows& rows, bool json)
{
    while (browser.IsWaiting())
        browser.Work(STEP_TIME);
    json ? PrintRowsJson(rows) : PrintRows(rows);
    return rows.GetCount() > 0 ? RESULT_OK : RESULT_NO;
}

int Browse(const CCommandCall& call, const CDBFieldMap& map, CDBADatabase& database)
{
    CBrowseRows rows(database, map);
    const std::vector<CBrowseColumn>& columns = rows.GetColumns();
    if (std::none_of(columns.begin(), columns.end(),
                     [](const CBrowseColumn& column) { return column.m_IsShown; }))
    {
        PrintError(u"the map of '" + map.GetTableName() +
                   u"' shows no column: see 'utility db map'");
        return RESULT_FAILURE;
    }
    CBrowser browser(rows, map.GetTableName());
    if ((call.Has("filter") && !browser.Filter(call.Get("filter"))) ||
        (call.Has("sort") && !browser.Sort(call.Get("sort"))))
    {
        PrintError(browser.GetMessage());
        return RESULT_USAGE;
    }
    return CTerminalScreen::IsThere() && !call.WantsJson()
               ? BrowseOnTerminal(browser)
               : PrintAll(browser, rows, call.WantsJson());
}

int RunBrowse(const CCommandCall& call)
{
    const CDbSource source = SourceToRead(call);
    const CDbMaps maps(source, call);
    const CString table = call.GetArgument(0);
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     CDBFieldMap map;
                     if (!maps.Load(database, table, map))
                         return RESULT_FAILURE;
                     ApplyRules(CDbRules(source, table), map);
                     return Browse(call, map, database);
                 });
}

} // namespace

std::vector<CCommand> DbBrowseCommands()
{
    std::vector<CCommandOption> options = FromOptions(MapOptions());
    options.push_back({"filter", "TEST", "Begin with rows that pass a test, as / asks for it"});
    options.push_back({"sort", "COLUMN", "Begin sorted by a column; - before it for downwards"});
    return {
        {"db",
         "browse",
         "Look through the rows of a table in the terminal",
         BROWSE_HELP,
         {{"TABLE", "The table or view"}},
         options,
         RunBrowse,
         true},
    };
}

} // namespace utility
