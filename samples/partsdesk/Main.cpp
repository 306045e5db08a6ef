// A browser for databases of parts, over the library alone; docs/partsdesk.md shows it.

#include "frame/AppLog.h"
#include "frame/Application.h"
#include "frame/IdleHandler.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/WindowSystem.h"

#include "PartsWindow.h"
#include "Resources.h"

#include <iostream>
#include <string_view>

using namespace utility;

namespace
{

constexpr int FAILURE_EXIT = 1;
constexpr int WRONG_USE_EXIT = 2;

constexpr char HELP[] = R"(Usage: partsdesk [--once] [DATABASE]
Browses the parts of a SQLite database, such as the one that ./run makes.
Without DATABASE it is the one that was open at last.

  --once   Ends when the window has been shown: for measuring the start
  --help   This text

Exit codes: 0 closed by the user, 2 wrong use, 3 no display.
)";

struct COptions
{
    bool m_WantsHelp = false;
    bool m_IsOnce = false;
    bool m_IsWrong = false;
    CString m_Database;
};

COptions ReadOptions(int argc, char** argv)
{
    COptions options;
    for (int i = 1; i < argc; ++i)
    {
        const std::string_view word = argv[i];
        if (word == "--help")
            options.m_WantsHelp = true;
        else if (word == "--once")
            options.m_IsOnce = true;
        else if (word.starts_with("-") || !options.m_Database.IsEmpty())
            options.m_IsWrong = true;
        else
            options.m_Database = ClassicPath(word);
    }
    return options;
}

void FillApplication()
{
    CApplication::SetCompanyName(u"Makers");
    CApplication::SetName(u"Parts Desk");
    CApplication::SetProductName(u"Parts Desk");
    CApplication::SetVersion(u"0.1");
    CApplication::SetCopyright(u"Made of the library alone.");
    CAppLog::Start();
}

int Run(const COptions& options)
{
    GetMessageLoop().SetIdleHandler([](LONG count) { return CIdleHandler::OnIdle(count) != 0; });
    partsdesk::AddResources();
    partsdesk::CPartsWindow window(options.m_Database);
    if (!window.Open())
        return FAILURE_EXIT;
    CApplication::SetMainWnd(&window);
    if (options.m_IsOnce)
        window.PostMessage(WM_COMMAND, IDCANCEL);
    const int code = GetMessageLoop().Run();
    CApplication::SetMainWnd(nullptr);
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    const COptions options = ReadOptions(argc, argv);
    if (options.m_WantsHelp || options.m_IsWrong)
    {
        (options.m_IsWrong ? std::cerr : std::cout) << HELP;
        return options.m_IsWrong ? WRONG_USE_EXIT : 0;
    }
    FillApplication();
    CWindowSystem windows;
    CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::cerr << "partsdesk: " << ToUtf8(reason.View()) << '\n';
        return NO_DISPLAY_EXIT;
    }
    return Run(options);
}
