#include "platform/system/window/LiveWindows.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

std::vector<CLiveWindow> ListWindows()
{
    std::vector<CLiveWindow> windows;
    EnumWindows(
        [&windows](const CLiveWindow& window)
        {
            windows.push_back(window);
            return true;
        });
    return windows;
}

void PrintAsTable(const std::vector<CLiveWindow>& windows)
{
    const auto text = [](std::int64_t number)
    {
        return CString(std::to_string(number).c_str());
    };
    CTextTable table;
    table.AddColumn(u"Instance", CTextTable::EAlign::Right);
    table.AddColumn(u"Process", CTextTable::EAlign::Right);
    table.AddColumn(u"Application");
    table.AddColumn(u"Title");
    for (const CLiveWindow& window : windows)
        table.AddRow({text(window.m_Instance), text(window.m_ProcessId), window.m_Application,
                      window.m_Title});
    table.Print();
}

void PrintAsJson(const std::vector<CLiveWindow>& windows)
{
    CJsonWriter json;
    json.BeginArray();
    for (const CLiveWindow& window : windows)
    {
        json.BeginObject();
        json.Key(u"instance");
        json.Number(window.m_Instance);
        json.Key(u"process");
        json.Number(std::int64_t{window.m_ProcessId});
        json.Field(u"application", window.m_Application);
        json.Field(u"class", window.m_ClassName);
        json.Field(u"title", window.m_Title);
        json.EndObject();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

int ListInstances(const CCommandCall& call)
{
    const std::vector<CLiveWindow> windows = ListWindows();
    if (call.WantsJson())
        PrintAsJson(windows);
    else if (!windows.empty())
        PrintAsTable(windows);
    return windows.empty() ? RESULT_NO : RESULT_OK;
}

} // namespace

std::vector<CCommand> InstanceCommands()
{
    return {
        {"instance",
         "list",
         "List the running programs of the suite with their windows",
         "One line a window, the topmost of each program first: the number of its instance (0 if "
         "it "
         "has none), its\n"
         "process and its title. Programs of this user that are built on the library are seen; "
         "what "
         "ended programs\n"
         "left behind is removed. The result is 1 if none runs.",
         {},
         {},
         ListInstances},
    };
}

} // namespace utility
