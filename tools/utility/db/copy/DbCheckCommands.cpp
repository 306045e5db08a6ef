#include "database/DBADatabase.h"
#include "database/transfer/TableList.h"
#include "platform/db/Driver.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbWork.h"
#include "utility/db/copy/TableCheck.h"
#include "utility/output/RowProgress.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char CHECK_HELP[] =
    "Tells driver, versions and what is peculiar to them, reads every row of the tables, and "
    "counts "
    "the cells that read as something else than stands there: values of another kind than the "
    "column (SQLite), NULs, bytes that are no UTF-8, zero dates, infinity, years outside 1 to "
    "9999, "
    "whole numbers beyond 32 bits. Ends with 1 if there are any.";

/// What a driver's peculiarities mean for its user.
std::vector<CString> WordPeculiarities(const CSourceFacts& facts)
{
    std::vector<CString> words;
    if (!facts.IsKnown)
        words.push_back(u"this kind of source was never measured: taken by the ODBC standard");
    if (facts.TakesWholeResult)
        words.push_back(u"the driver takes the whole result before it gives the first row");
    if (facts.CursorStandsAlone)
        words.push_back(u"rows that are still to come are fetched before another statement runs");
    if (facts.HidesColumns)
        words.push_back(
            u"the driver calls every expression a text: its first row is asked for twice");
    if (facts.StoresDatesAsText)
        words.push_back(u"dates are texts in the file");
    if (!facts.IsWide)
        words.push_back(u"statements go out as UTF-8");
    CString rows;
    rows.Format(u"%d %s a fetch", facts.RowSetSize, facts.RowSetSize == 1 ? u"row" : u"rows");
    words.push_back(rows);
    return words;
}

const char16_t* DialectName(int type)
{
    switch (type)
    {
    case DB_TYPE_ORACLE:
        return u"Oracle";
    case DB_TYPE_POSTGRESQL:
        return u"PostgreSQL";
    default:
        return u"default";
    }
}

void PrintFacts(const CDBADatabase& database, const CSourceFacts& facts)
{
    PrintLine(u"database  " + facts.DbmsName + u" " + facts.DbmsVersion);
    PrintLine(u"driver    " + facts.DriverName + u" " + facts.DriverVersion + u", ODBC " +
              facts.OdbcVersion);
    PrintLine(CString(u"dialect   ") + DialectName(database.GetDbType()));
    for (const CString& words : WordPeculiarities(facts))
        PrintLine(u"note      " + words);
}

void PrintCheck(const CTableCheck& check)
{
    CString line;
    line.Format(u"table     %s: %I64d rows, first after %d ms, %I64d rows/s", check.m_Table,
                static_cast<long long>(check.m_Rows), static_cast<int>(check.m_FirstRowTime),
                static_cast<long long>(RowsPerSecond(check.m_Rows, check.m_Time)));
    PrintLine(Printable(line));
    for (const COddCells& cells : check.m_Odd)
    {
        CString odd;
        odd.Format(u"odd       %s.%s: %I64d %s, the first in row %I64d, %s %s", check.m_Table,
                   cells.m_Column, static_cast<long long>(cells.m_Count),
                   cells.m_Count == 1 ? u"cell" : u"cells",
                   static_cast<long long>(cells.m_FirstRow),
                   cells.m_Count == 1 ? u"which" : u"of which each", cells.m_Words);
        PrintLine(Printable(odd));
    }
}

void WriteTables(CJsonWriter& json, const std::vector<CTableCheck>& checks)
{
    json.BeginArray();
    for (const CTableCheck& check : checks)
    {
        json.BeginObject();
        json.Field(u"table", check.m_Table);
        json.Key(u"rows");
        json.Number(check.m_Rows);
        json.Key(u"first row ms");
        json.Number(static_cast<std::int64_t>(check.m_FirstRowTime));
        json.Key(u"rows a second");
        json.Number(RowsPerSecond(check.m_Rows, check.m_Time));
        json.Key(u"odd");
        json.BeginArray();
        for (const COddCells& cells : check.m_Odd)
        {
            json.BeginObject();
            json.Field(u"column", cells.m_Column);
            json.Field(u"reason", cells.m_Words);
            json.Key(u"cells");
            json.Number(cells.m_Count);
            json.Key(u"first row");
            json.Number(cells.m_FirstRow);
            json.EndObject();
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void PrintJson(const CDBADatabase& database, const CSourceFacts& facts,
               const std::vector<CTableCheck>& checks)
{
    CJsonWriter json;
    json.BeginObject();
    json.Field(u"database", facts.DbmsName);
    json.Field(u"database version", facts.DbmsVersion);
    json.Field(u"driver", facts.DriverName);
    json.Field(u"driver version", facts.DriverVersion);
    json.Field(u"odbc version", facts.OdbcVersion);
    json.Field(u"dialect", DialectName(database.GetDbType()));
    json.Key(u"notes");
    json.BeginArray();
    for (const CString& words : WordPeculiarities(facts))
        json.Text(words);
    json.EndArray();
    json.Key(u"tables");
    WriteTables(json, checks);
    json.EndObject();
    json.Flush();
    PrintBytes("\n");
}

int CheckTables(const CCommandCall& call, CDBADatabase& database)
{
    std::vector<CString> tables(call.GetArguments().begin() + 1, call.GetArguments().end());
    if (tables.empty())
        tables = ListTables(database);
    const CSourceFacts facts = database.m_hdbc->ReadFacts();
    if (!call.WantsJson())
        PrintFacts(database, facts);
    std::vector<CTableCheck> checks;
    bool isOdd = false;
    for (const CString& table : tables)
    {
        CTableCheck& check = checks.emplace_back();
        check.m_Table = table;
        if (!CheckTable(database, check))
        {
            PrintError(u"interrupted");
            return RESULT_FAILURE;
        }
        isOdd = isOdd || !check.m_Odd.empty();
        if (!call.WantsJson())
            PrintCheck(check);
    }
    if (call.WantsJson())
        PrintJson(database, facts, checks);
    return isOdd ? RESULT_NO : RESULT_OK;
}

int Check(const CCommandCall& call)
{
    return RunOn(CDbSource(call.GetArgument(0), call.Get("password-file")), EDbUse::Read,
                 [&](CDBADatabase& database) { return CheckTables(call, database); });
}

} // namespace

std::vector<CCommand> DbCheckCommands()
{
    return {
        {"db",
         "check",
         "Tell what a source is, how fast, and which of its cells are odd",
         CHECK_HELP,
         {{"SOURCE", "SQLite file or ODBC connect string"},
          {"TABLE", "A table or view; all tables if none is given", EArity::Any}},
         {PasswordFileOption()},
         Check,
         true},
    };
}

} // namespace utility
