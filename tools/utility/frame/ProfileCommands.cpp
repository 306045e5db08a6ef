#include "frame/AppError.h"
#include "frame/AppProfiler.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"
#include "text/match/StringCompare.h"

#include "utility/command/CommandTable.h"
#include "utility/frame/ProfileLog.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

CString TextOf(int number)
{
    CString text;
    text.Format(u"%d", number);
    return text;
}

/// Puts the rows of each table in the order asked for; they come in that of their first use.
void Sort(std::vector<CProfileRow>& rows, const CString& order)
{
    if (order == u"use")
        return;
    std::stable_sort(rows.begin(), rows.end(),
                     [&order](const CProfileRow& left, const CProfileRow& right)
                     {
                         if (left.m_Table != right.m_Table)
                             return left.m_Table < right.m_Table;
                         if (order == u"name")
                             return StringCompare(left.m_Name, right.m_Name, false, true, true) < 0;
                         return order == u"calls" ? left.m_Calls > right.m_Calls
                                                  : left.m_Total > right.m_Total;
                     });
}

void KeepLastTable(std::vector<CProfileRow>& rows)
{
    const int last = rows.empty() ? 0 : rows.back().m_Table;
    std::erase_if(rows, [last](const CProfileRow& row) { return row.m_Table != last; });
}

void PrintAsTable(const std::vector<CProfileRow>& rows)
{
    CTextTable table;
    for (const char16_t* heading : {u"Table", u"ms", u"%", u"Calls"})
        table.AddColumn(heading, CTextTable::EAlign::Right);
    table.AddColumn(u"Region");
    for (const CProfileRow& row : rows)
        table.AddRow({TextOf(row.m_Table), TextOf(row.m_Total), TextOf(row.m_Percent),
                      TextOf(row.m_Calls), row.m_Name});
    table.Print();
}

void PrintAsCsv(const std::vector<CProfileRow>& rows)
{
    PrintCsvLine({u"Table", u"Milliseconds", u"Percent", u"Calls", u"Region"});
    for (const CProfileRow& row : rows)
        PrintCsvLine({TextOf(row.m_Table), TextOf(row.m_Total), TextOf(row.m_Percent),
                      TextOf(row.m_Calls), row.m_Name});
}

void PrintAsJson(const std::vector<CProfileRow>& rows)
{
    CJsonWriter json;
    json.BeginArray();
    for (const CProfileRow& row : rows)
    {
        json.BeginObject();
        json.Key(u"table");
        json.Number(row.m_Table);
        json.Field(u"region", row.m_Name);
        json.Key(u"milliseconds");
        json.Number(row.m_Total);
        json.Key(u"percent");
        json.Number(row.m_Percent);
        json.Key(u"calls");
        json.Number(row.m_Calls);
        json.EndObject();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

int ShowProfile(const CCommandCall& call)
{
    const CString path =
        call.GetArguments().empty() ? CAppProfiler::GetLogPath() : call.GetArgument(0);
    if (call.Has("path"))
    {
        PrintLine(NativePath(path));
        return RESULT_OK;
    }
    try
    {
        CProfileLog log = ReadProfileLog(path);
        if (call.Has("last"))
            KeepLastTable(log.m_Rows);
        Sort(log.m_Rows, call.Get("sort", u"time"));
        (call.WantsJson() ? PrintAsJson : call.Has("csv") ? PrintAsCsv : PrintAsTable)(log.m_Rows);
        for (const CString& line : log.m_Others)
            PrintError(line);
        return RESULT_OK;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        PrintError(NativePath(path) + u": " + exception->GetErrorText());
        return RESULT_FAILURE;
    }
}

} // namespace

std::vector<CCommand> ProfileCommands()
{
    return {
        {"log",
         "profile",
         "Print the times that a program measured of itself",
         "The profiling log of the program that --app names, as its last run wrote it, or a file "
         "of that form: for each\n"
         "table its regions with milliseconds, percent of the outermost region, and calls.\n"
         "\n"
         "    utility settings set 'Application\\Profiler\\Profiling' 1 --type number --app "
         "Makers/Board\n"
         "    utility log profile --last --sort calls --app Makers/Board",
         {{"FILE", "a profiling log; that of the program without it", EArity::Optional}},
         {{"sort",
           "ORDER",
           "How each table is sorted; time if not given, use for the order of first use",
           false,
           {"time", "calls", "name", "use"}},
          {"last", "", "Only the last table"},
          {"csv", "", "Print comma-separated text"},
          {"path", "", "Print where the file is kept, and stop"}},
         ShowProfile}};
}

} // namespace utility
