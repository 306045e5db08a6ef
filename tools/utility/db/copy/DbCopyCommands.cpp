#include "database/DBADatabase.h"
#include "database/transfer/TableCopy.h"
#include "database/transfer/TableList.h"
#include "frame/AppLog.h"
#include "platform/db/DBException.h"
#include "platform/system/Clock.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbTrace.h"
#include "utility/db/DbWork.h"
#include "utility/db/copy/CellWords.h"
#include "utility/host/Interrupt.h"
#include "utility/output/RowProgress.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char COPY_HELP[] =
    "Each table is copied whole or not at all: its rows come in one transaction and are read back "
    "and compared before it ends. A value that the target cannot hold is named by table, row and "
    "column, and stops the copy. A table that stands there empty is filled, by column names; one "
    "with the same rows is passed over, so that a copy that was stopped is taken up by the same "
    "words. A table that is made has the columns and types of the source, but no keys, indexes or "
    "presets.";

/// What a copy did, table by table.
struct CCopyReport
{
    std::vector<std::pair<CString, CCopyResult>> m_Tables;
    std::int64_t m_Rows = 0; // copied
};

CString FormatChecksum(std::uint64_t checksum)
{
    CString text;
    text.Format(u"%08x%08x", static_cast<unsigned>(checksum >> 32U),
                static_cast<unsigned>(checksum));
    return text;
}

CString WordPlace(const CCopyResult& result)
{
    CString text;
    text.Format(u"row %I64d", static_cast<long long>(result.m_Row));
    return result.m_Column.IsEmpty() ? text : text + u", column '" + result.m_Column + u"'";
}

CString WordFailure(const CCopyResult& result)
{
    switch (result.m_End)
    {
    case ECopyEnd::Copied:
    case ECopyEnd::StandsAlready:
        break;
    case ECopyEnd::Stopped:
        return u"interrupted";
    case ECopyEnd::OtherRows:
        return u"the target's table has rows already, and not the same";
    case ECopyEnd::NoColumn:
        return u"the target's table has no column '" + result.m_Column + u"'";
    case ECopyEnd::Misfit:
        return WordPlace(result) + u": the value " +
               WordCellFault(result.m_Fault, result.m_Storage);
    case ECopyEnd::Refused:
        return WordPlace(result) + u": " + result.m_Words;
    case ECopyEnd::Differs:
        return u"what was read back is not what was written";
    }
    return {};
}

bool IsWhole(const CCopyResult& result)
{
    return result.m_End == ECopyEnd::Copied || result.m_End == ECopyEnd::StandsAlready;
}

void PrintTable(const CString& table, const CCopyResult& result)
{
    CString line;
    line.Format(u"%s: %I64d rows %s, checksum %s", table, static_cast<long long>(result.m_Rows),
                result.m_End == ECopyEnd::Copied ? u"copied" : u"stand already",
                FormatChecksum(result.m_Checksum));
    PrintLine(Printable(line));
}

void PrintJson(const CCopyReport& report)
{
    CJsonWriter json;
    json.BeginArray();
    for (const auto& [table, result] : report.m_Tables)
    {
        json.BeginObject();
        json.Field(u"table", table);
        json.Field(u"state", result.m_End == ECopyEnd::Copied ? u"copied" : u"stands already");
        json.Key(u"rows");
        json.Number(result.m_Rows);
        json.Field(u"checksum", FormatChecksum(result.m_Checksum));
        json.EndObject();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

/// One table; false, and the reason is told, if it was not copied.
bool CopyTable(CDBADatabase& from, CDBADatabase& to, const CString& table, bool isQuiet,
               CCopyReport& report)
{
    if (IsInterrupted()) // asked before anything is written
    {
        PrintError(Printable(u"interrupted before table '" + table + u"'"));
        return false;
    }
    CRowProgress progress(table, 0);
    CCopyResult result;
    try
    {
        const auto step = [&](std::int64_t rows)
        {
            progress.Step(rows, rows);
            return !IsInterrupted();
        };
        result = CTableCopy(from, to, step).Copy(table);
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        progress.End();
        PrintError(Printable(u"table '" + table + u"': " + exception->GetErrorText()));
        return false;
    }
    progress.End();
    CAppLog::Log(DbContext(), u"Table '%1': %2!d! rows\n", table, static_cast<int>(result.m_Rows));
    if (!IsWhole(result))
    {
        PrintError(Printable(u"table '" + table + u"': " + WordFailure(result) +
                             u"; nothing of the table was copied"));
        return false;
    }
    report.m_Rows += result.m_End == ECopyEnd::Copied ? result.m_Rows : 0;
    report.m_Tables.emplace_back(table, result);
    if (!isQuiet)
        PrintTable(table, result);
    return true;
}

int CopyTables(const CCommandCall& call, CDBADatabase& from, CDBADatabase& to)
{
    const std::uint64_t start = GetTickCount();
    std::vector<CString> tables(call.GetArguments().begin() + 2, call.GetArguments().end());
    if (tables.empty())
        tables = ListTables(from);
    CCopyReport report;
    bool isWhole = true;
    for (std::size_t index = 0; index < tables.size() && isWhole; index++)
        isWhole = CopyTable(from, to, tables[index], call.WantsJson(), report);
    if (call.WantsJson())
        PrintJson(report);
    else if (isWhole)
    {
        const std::uint64_t time = GetTickCount() - start;
        CString line;
        line.Format(u"%d %s, %I64d rows copied, %d ms, %I64d rows/s",
                    static_cast<int>(tables.size()), tables.size() == 1 ? u"table" : u"tables",
                    static_cast<long long>(report.m_Rows), static_cast<int>(time),
                    static_cast<long long>(RowsPerSecond(report.m_Rows, time)));
        PrintLine(line);
    }
    return isWhole ? RESULT_OK : RESULT_FAILURE;
}

int Copy(const CCommandCall& call)
{
    const CDbSource from(call.GetArgument(0), call.Get("password-file"));
    const CDbSource to(call.GetArgument(1), call.Get("to-password-file"));
    return RunOn(from, EDbUse::Read,
                 [&](CDBADatabase& fromDatabase)
                 {
                     return RunOn(to, EDbUse::Fill,
                                  [&](CDBADatabase& toDatabase)
                                  { return CopyTables(call, fromDatabase, toDatabase); });
                 });
}

} // namespace

std::vector<CCommand> DbCopyCommands()
{
    return {
        {"db",
         "copy",
         "Copy tables from one database to another, whatever holds them",
         COPY_HELP,
         {{"FROM", "SQLite file or ODBC connect string"},
          {"TO", "The same; a file is made if it is not there"},
          {"TABLE", "A table or view; all tables if none is given", EArity::Any}},
         {PasswordFileOption(), {"to-password-file", "FILE", "The same for the target's password"}},
         Copy,
         true},
    };
}

} // namespace utility
