// A host program in small: one instance with a main window, which does what lines on its standard
// input say.
//
//     InstanceHost -I2 amplifier.pcb      the window's title is "Boards:PCB - amplifier.pcb"
//
//     find 2          yes or no           FindInstance
//     other           process and title   FindOtherWindow; none without
//     state           visible zoomed left top right bottom
//     title TEXT      done                SetWindowText
//     send NAME 1 2   its answer          SendToAllInstances
//     await           the next of what comes from others: event 1 2, message 1 2, close
//
// It says "ready" once it can be found, and ends with its input.

#include "frame/AppInstance.h"
#include "frame/Application.h"
#include "frame/Evt.h"
#include "frame/InstanceEvents.h"
#include "platform/base/Atoms.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/base/Rect.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include <deque>
#include <iostream>
#include <sstream>
#include <string>

namespace utility
{
namespace
{

constexpr char16_t PING[] = u"InstanceHost.Ping";
constexpr char16_t EVENT[] = u"Test.Saved";

using CNotes = std::deque<std::string>;

std::string Words(const char* name, LPARAM a, LPARAM b)
{
    return std::string(name) + " " + std::to_string(a) + " " + std::to_string(b);
}

class CHostWnd : public CWnd
{
public:
    explicit CHostWnd(CNotes& notes) : m_Notes(notes) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == m_Ping)
            m_Notes.push_back(Words("message", static_cast<LPARAM>(wParam), lParam));
        if (message == WM_CLOSE)
            m_Notes.push_back("close");
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    CNotes& m_Notes;
    const UINT m_Ping = RegisterWindowMessageW(PING);
};

class CHostListener : public CEvt
{
public:
    explicit CHostListener(CNotes& notes) : m_Notes(notes)
    {
        Register(EVENT, this, &CHostListener::OnEvent);
    }
    unsigned char OnEvent(LPARAM a, LPARAM b)
    {
        m_Notes.push_back(Words("event", a, b));
        return 1;
    }

private:
    CNotes& m_Notes;
};

class CHost
{
public:
    bool Start(const CString& tail)
    {
        InstallInstanceEvents();
        return m_Window.Create(u"Frame", CAppInstance::GetName() + u" - " + tail, WS_VISIBLE,
                               nullptr);
    }

    std::string Answer(const std::string& line)
    {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        if (verb == "find")
            return CAppInstance::FindInstance(ReadNumber(words)) ? "yes" : "no";
        if (verb == "other")
            return TellOther();
        if (verb == "state")
            return TellState();
        if (verb == "title")
            return SetTitle(words);
        if (verb == "send")
            return Send(words);
        return verb == "await" ? Await() : "what?";
    }

private:
    static int ReadNumber(std::istringstream& words)
    {
        int number = 0;
        words >> number;
        return number;
    }
    static std::string TellOther()
    {
        const HWND other = CAppInstance::FindOtherWindow();
        return other ? std::to_string(GetWindowThreadProcessId(other)) + " " +
                           ToUtf8(GetWindowText(other).View())
                     : "none";
    }
    std::string TellState() const
    {
        const CRect place = m_Window.GetWindowRect();
        std::ostringstream state;
        state << m_Window.IsWindowVisible() << ' ' << m_Window.IsZoomed() << ' ' << place.left
              << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
        return state.str();
    }
    std::string SetTitle(std::istringstream& words)
    {
        std::string title;
        std::getline(words >> std::ws, title);
        m_Window.SetWindowText(FromUtf8(title));
        return "done";
    }
    static std::string Send(std::istringstream& words)
    {
        std::string name;
        words >> name;
        const int a = ReadNumber(words);
        const int b = ReadNumber(words);
        return std::to_string(CEvt::SendToAllInstances(FromUtf8(name), a, b));
    }
    std::string Await()
    {
        GetMessageLoop().RunUntil([this] { return !m_Notes.empty(); }, INFINITE);
        const std::string note = m_Notes.front();
        m_Notes.pop_front();
        return note;
    }

    CNotes m_Notes;
    CHostWnd m_Window{m_Notes};
    const CHostListener m_Listener{m_Notes};
};

} // namespace
} // namespace utility

int main(int argc, char** argv)
{
    using namespace utility;
    CApplication::SetCompanyName(u"Test Makers");
    CApplication::SetRegistryName(u"Boards");
    CWinApp app;
    app.m_pszAppName = u"Boards";
    CString tail;
    for (int i = 1; i < argc; ++i)
    {
        const CString argument = FromUtf8(argv[i]);
        if (argument.Left(2) == u"-I")
            CAppInstance::SetInstance(_wtoi(argument.Mid(2)));
        else
            tail += argument;
    }
    CHost host;
    if (!host.Start(tail))
        return 3;
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);)
        std::cout << host.Answer(line) << std::endl;
    return 0;
}
