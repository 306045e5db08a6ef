#include "files/FilePath.h"
#include "frame/AppError.h"
#include "frame/AppLog.h"
#include "frame/AppLogSettings.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/FolderWatch.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/file/WholeFile.h"
#include "platform/system/window/MessageLoop.h"
#include "settings/AppRegistry.h"

#include "utility/command/CommandTable.h"
#include "utility/host/GrowingFile.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char16_t NOT_STORED[] = u"the setting could not be stored";

bool IsOn()
{
    int logging = 0;
    CAppRegistry(LOG_SETTINGS_KEY).GetValue(LOG_SWITCH, logging);
    return logging > 0;
}

/// The list of contexts; a number, which a first start leaves there, lists none.
CString ReadContexts()
{
    CAppRegistry settings(LOG_SETTINGS_KEY);
    int number = 0;
    CString contexts;
    if (!settings.GetValue(LOG_CONTEXTS, number))
        settings.GetValue(LOG_CONTEXTS, contexts);
    return contexts;
}

/// The bytes behind the last so many line ends that are followed by a line.
std::string_view LastLines(std::string_view text, int count)
{
    std::size_t begin = text.size();
    while (count-- > 0 && begin > 0)
    {
        const std::size_t end = begin < 2 ? std::string_view::npos : text.rfind('\n', begin - 2);
        begin = end == std::string_view::npos ? 0 : end + 1;
    }
    return text.substr(begin);
}

/// What the command shows of a log at first.
std::string_view Chosen(std::string& text, const CCommandCall& call)
{
    std::erase(text, '\r');
    return call.Has("last") ? LastLines(text, call.GetNumber("last", 0)) : std::string_view(text);
}

/// Prints a log as it grows, until Ctrl-C or a line that holds the text of --until.
class CLogFollower
{
public:
    CLogFollower(const CString& path, const CCommandCall& call)
        : m_Path(path),
          m_Call(call),
          m_Log(path),
          m_End(ToUtf8(call.Get("until").View()))
    {
    }

    int Run()
    {
        const CString folder = CFilePath(m_Path).GetDriveAndDirectory();
        CFolderWatch watch;
        if (!watch.Start(
                {folder}, [this] { OnWritten(); }, EWatched::Writing))
        {
            PrintError(CAppError::GetLastErrorString());
            return RESULT_FAILURE;
        }
        std::string text;
        m_Log.ReadNew(text);
        return Print(Chosen(text, m_Call)) ? RunUntilInterrupted() : m_Result;
    }

private:
    void OnWritten()
    {
        std::string text;
        if (m_Log.ReadNew(text))
            PrintError(u"the log was begun anew");
        std::erase(text, '\r');
        if (!Print(text))
            GetMessageLoop().Quit(m_Result);
    }
    /// False if nothing more is to be printed; the result then tells why.
    bool Print(std::string_view text)
    {
        PrintBytes(text);
        m_Result = FinishOutput() ? RESULT_OK : RESULT_FAILURE;
        const bool isEnd = !m_End.empty() && text.find(m_End) != std::string_view::npos;
        return m_Result == RESULT_OK && !isEnd;
    }

    const CString m_Path;
    const CCommandCall& m_Call;
    CGrowingFile m_Log;
    const std::string m_End; // empty: no text ends it
    int m_Result = RESULT_OK;
};

int ShowLog(const CCommandCall& call)
{
    const CString path = CAppLog::GetLogPath();
    if (call.Has("path"))
    {
        PrintLine(NativePath(path));
        return RESULT_OK;
    }
    if (call.Has("follow"))
        return CLogFollower(path, call).Run();
    if (call.Has("until"))
    {
        PrintError(u"--until goes with --follow");
        return RESULT_USAGE;
    }
    std::string text;
    if (!ReadWholeFile(path, text, CFile::shareDenyNone))
    {
        PrintError(NativePath(path) + u": " + CAppError::GetLastErrorString());
        return RESULT_FAILURE;
    }
    PrintBytes(Chosen(text, call));
    return RESULT_OK;
}

int SwitchLog(bool on)
{
    if (!CAppRegistry(LOG_SETTINGS_KEY).SetValue(LOG_SWITCH, on ? 1 : 0))
    {
        PrintError(NOT_STORED);
        return RESULT_FAILURE;
    }
    if (on && ReadContexts().IsEmpty())
        PrintError(
            u"the log is on, but writes nothing until 'utility log contexts' lists a context");
    return RESULT_OK;
}

int ShowContexts(const CCommandCall& call)
{
    const CString contexts = ReadContexts();
    if (!call.WantsJson())
    {
        PrintLine(contexts);
        return RESULT_OK;
    }
    CJsonWriter json;
    json.BeginObject();
    json.Key(u"on");
    json.Bool(IsOn());
    json.Field(u"contexts", contexts);
    json.Field(u"path", NativePath(CAppLog::GetLogPath()));
    json.EndObject();
    json.Flush();
    PrintBytes("\n");
    return RESULT_OK;
}

int SetContexts(const CCommandCall& call)
{
    if (call.GetArguments().empty())
        return ShowContexts(call);
    if (CAppRegistry(LOG_SETTINGS_KEY).SetValue(LOG_CONTEXTS, call.GetArgument(0)))
        return RESULT_OK;
    PrintError(NOT_STORED);
    return RESULT_FAILURE;
}

} // namespace

std::vector<CCommand> LogCommands()
{
    return {
        {"log",
         "show",
         "Print the trace log of a program",
         "The log of the program that --app names, as its last run wrote it. With\n"
         "--follow it goes on with what a running program writes, until Ctrl-C; a log\n"
         "that is not there yet is awaited, and one that is begun anew is followed on.\n"
         "\n"
         "    utility log show --last 20 --follow --app Makers/Board",
         {},
         {NumberOption("last", "COUNT", "Only so many lines from the end"),
          {"follow", "", "Go on with what the program writes"},
          {"until", "TEXT", "With --follow: end at a line that holds this text"},
          {"path", "", "Print where the log is kept, and stop"}},
         ShowLog},
        {"log",
         "on",
         "Let the program write its log from its next start on",
         "Nothing is written until a context is listed: see 'utility log contexts'.",
         {},
         {},
         [](const CCommandCall&)
         {
             return SwitchLog(true);
         }},
        {"log",
         "off",
         "Let the program write no log from its next start on",
         "",
         {},
         {},
         [](const CCommandCall&)
         {
             return SwitchLog(false);
         }},
        {"log",
         "contexts",
         "Print or set the contexts that the log writes",
         "A list such as 'ReportError=2; Comms,!Old=5': names with the highest level that is "
         "written, 0 if none is\n"
         "given; a name behind ! is passed over.",
         {{"LIST", "The contexts; without it, those that are set are printed", EArity::Optional}},
         {},
         SetContexts},
    };
}

} // namespace utility
