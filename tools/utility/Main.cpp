#include "platform/base/object/Exception.h"

#include "utility/command/CommandLine.h"
#include "utility/host/ArgumentList.h"
#include "utility/host/Host.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr const char16_t* PRESET_APP = u"Utility/Utility";

/// Runs the command; what nobody caught becomes a failure with its words.
int Run(const CCommandLine& line)
{
    try
    {
        const std::optional<CAppName> app = ReadAppName(line.m_Call.Get("app", PRESET_APP));
        if (!app)
        {
            PrintError(u"--app takes COMPANY/NAME");
            return RESULT_USAGE;
        }
        const CHost host(*app, line.m_Call.SaysYes());
        if (line.m_Command->m_IsTraced && !line.m_Call.Has("app"))
            CHost::StartLog();
        return line.m_Command->m_Run(line.m_Call);
    }
    catch (CException* exception)
    {
        const CExceptionGuard guard(exception);
        PrintError(exception->GetErrorText());
    }
    catch (const std::bad_alloc&)
    {
        PrintError(u"there is not enough memory");
    }
    return RESULT_FAILURE;
}

int Main(const std::vector<std::string>& words)
{
    const CCommandLine line = ReadCommandLine(words);
    const int result = line.m_Command ? Run(line) : line.m_Result;
    return FinishOutput() ? result : RESULT_FAILURE;
}

} // namespace

} // namespace utility

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    utility::HidePasswords(argc, argv);
    return utility::Main(words);
}
