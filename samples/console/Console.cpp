// A host without windows: console FILE [--fault | --replay ANSWERS]; docs/console-sample.md walks
// through it.

#include "files/SafeFile.h"
#include "files/encoded/StdioFileEx.h"
#include "frame/AppError.h"
#include "frame/AppLogBlock.h"
#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "frame/Evt.h"
#include "frame/MacroOps.h"
#include "frame/ProgramPath.h"
#include "frame/ThreadInfo.h"
#include "frame/WaitForWorker.h"
#include "frame/Win32Exception.h"
#include "platform/base/Encoding.h"
#include "platform/system/SharedLibrary.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"

#include <iostream>
#include <thread>
#include <vector>

using namespace utility;

static const char* g_NextAnswer = ""; // of a replayed macro

static bool ReplayAnswer(const CString*, int* answer)
{
    if (*g_NextAnswer == 0)
        return false;
    *answer = *g_NextAnswer++ - '0';
    return true;
}

static bool RecordAnswer(const CString*, int* answer)
{
    return static_cast<bool>(std::cout << "recorded: " << *answer << '\n');
}

/// Answers the boxes of workers.
class CMainWnd : public CWnd
{
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == MSG_SHOW_APP_MESSAGE_BOX ? CAppMessageBox::Answer(wParam, lParam)
                                                   : CWnd::WindowProc(message, wParam, lParam);
    }
};

/// Hears what became of each part.
struct CScreen : CEvt
{
    CScreen() { Register(u"Part.Checked", this, &CScreen::OnPartChecked); }
    unsigned char OnPartChecked(LPARAM part, LPARAM isKept)
    {
        const std::string text = ToUtf8(reinterpret_cast<const CString*>(part)->View());
        std::cout << (isKept ? "kept: " : "dropped: ") << text << '\n';
        return 0;
    }
};

/// Looks through the parts on a thread of its own.
struct CChecker : CThreadInfo
{
    std::vector<CString> m_Parts; // "R1 10k"

    void PerformTask() override
    {
        static const CAppLogContext context(u"Console", 0);
        const CAppLogBlock block(context, u"Checking %1!d! parts", int(m_Parts.size()));
        std::erase_if(m_Parts, [](const CString& part) { return !IsKept(part); });
        StopRunning();
    }

    static bool IsKept(const CString& part)
    {
        const CString question = u"Part " + part + u" has no value. Drop it?";
        const bool hasValue = part.Find(u' ') > 0;
        const bool isKept = hasValue || CAppMessageBox::Show(question, MB_YESNO, 0) != IDYES;
        GetMessageLoop().Send([&] { CEvt::Send(u"Part.Checked", LPARAM(&part), isKept); });
        return isKept;
    }
};

/// Calls a module that makes a mistake, and survives it.
static void RunModule()
{
    CWin32Exception::SetTranslator();
    HMODULE const module = LoadLibraryW(GetProgramPath() + u"console-module.so");
    const auto count = reinterpret_cast<int (*)(int)>(GetProcAddress(module, "CountLetters"));
    try
    {
        if (count)
            count(2);
    }
    catch (CWin32Exception* exception)
    {
        const CExceptionGuard guard(exception);
        CAppMessageBox::Show(u"The module has failed; the list is saved.", MB_OK, 0);
    }
}

/// Checks and saves the list of that path; the reason of a failure is recorded.
static bool Run(const CString& path, bool callsModule)
{
    CChecker checker;
    CStdioFileEx file;
    if (!file.Open(path, CFile::modeRead | CStdioFileEx::modeReadUTF8))
        return false;
    for (CString line; file.ReadString(line);)
        checker.m_Parts.push_back(line);

    const CScreen screen;
    std::thread worker([&] { checker.PerformTask(); });
    static_cast<void>(WaitForWorker(checker, 0, INFINITE)); // a bare join would answer no boxes
    worker.join();
    if (callsModule)
        RunModule();

    std::string bytes;
    for (const CString& part : checker.m_Parts)
        bytes += ToUtf8(part.View()) + '\n';
    return CSafeFile::Write(path, bytes);
}

int main(int argc, char** argv)
{
    CApplication::SetCompanyName(u"Makers");
    CApplication::SetName(u"Console");
    CApplication::SetProductName(u"Console");
    CAppLog::Start();
    CMacroOps::InitFunctions(RecordAnswer, ReplayAnswer, {}, {}, {}, {}, {}, {}, {});
    CMacroOps::SetRecording(true);
    CMainWnd mainWindow;
    mainWindow.Create(u"Frame", u"Console", 0, nullptr);
    CApplication::SetMainWnd(&mainWindow);

    CMacroOps::SetReplaying(argc > 3);
    g_NextAnswer = argc > 3 ? argv[3] : "";
    const bool callsModule = argc == 3 && argv[2] == std::string_view("--fault");
    if (Run(ClassicPath(argc > 1 ? argv[1] : ""), callsModule))
        return 0;
    CAppError::ReportLastError();
    return 1;
}
