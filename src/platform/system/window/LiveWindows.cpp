#include "platform/system/window/LiveWindows.h"

#include "platform/base/Atoms.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/LiveFolder.h"
#include "platform/system/window/OwnWindows.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowOrder.h"
#include "platform/system/window/Wnd.h"

#include <atomic>

namespace utility
{

namespace
{

// A window of another process is its process's id above its own number there.
constexpr int PROCESS_SHIFT = 32;
static_assert(sizeof(HWND) * 8 > PROCESS_SHIFT);

constinit std::atomic<LiveEventHandler> eventHandler = nullptr;

DWORD ProcessPart(HWND window)
{
    return static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(window) >> PROCESS_SHIFT);
}

DWORD NumberPart(HWND window)
{
    return static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(window));
}

HWND MakeWindow(DWORD process, DWORD number)
{
    return reinterpret_cast<HWND>(std::uintptr_t{process} << PROCESS_SHIFT | number);
}

bool VisitEntry(const CLiveEntry& entry, DWORD processPart,
                const std::function<bool(const CLiveWindow&)>& visit)
{
    for (const CLiveEntryWindow& window : entry.m_Windows)
    {
        const CLiveWindow value = {MakeWindow(processPart, window.m_Number),
                                   entry.m_Process.m_Id,
                                   entry.m_Instance,
                                   entry.m_Application,
                                   window.m_ClassName,
                                   window.m_Title};
        if (!visit(value))
            return false;
    }
    return true;
}

/// The window as it is told, with its process; false, with 6, if it is gone.
bool FindWindow(HWND window, CLiveEntryWindow& found, CProcessStamp& process)
{
    const DWORD processPart = ProcessPart(window);
    const std::vector<CLiveEntry> entries =
        processPart == 0 ? std::vector<CLiveEntry>{COwnWindows::Get().GetEntry()}
                         : ReadLiveEntries();
    for (const CLiveEntry& entry : entries)
    {
        if (processPart != 0 && entry.m_Process.m_Id != processPart)
            continue;
        for (const CLiveEntryWindow& one : entry.m_Windows)
        {
            if (one.m_Number != NumberPart(window))
                continue;
            found = one;
            process = entry.m_Process;
            return true;
        }
    }
    SetLastError(ERROR_INVALID_HANDLE);
    return false;
}

bool SendOrder(HWND window, CWindowOrder order)
{
    CLiveEntryWindow found;
    CProcessStamp process;
    if (!FindWindow(window, found, process))
        return false;
    order.m_Window = found.m_Number;
    return SendWindowOrder(process, FormatWindowOrder(order));
}

/// The object of an own window; null for another program's.
CWnd* FindOwn(HWND window)
{
    return CWnd::FromHandle(window);
}

bool Refuse()
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

bool MakePostOrder(UINT message, WPARAM wParam, LPARAM lParam, CWindowOrder& order)
{
    if (message == WM_CLOSE)
    {
        order.m_Kind = EWindowOrder::Close;
        return true;
    }
    order = {EWindowOrder::Message, 0, {}, wParam, lParam, GetWindowMessageName(message)};
    return !order.m_Name.IsEmpty() && order.m_Name.GetLength() <= ORDER_NAME_LIMIT;
}

} // namespace

bool EnumWindows(const std::function<bool(const CLiveWindow&)>& visit)
{
    if (!VisitEntry(COwnWindows::Get().GetEntry(), 0, visit))
        return false;
    for (const CLiveEntry& entry : ReadLiveEntries())
    {
        if (!VisitEntry(entry, entry.m_Process.m_Id, visit))
            return false;
    }
    return true;
}

DWORD GetWindowThreadProcessId(HWND window)
{
    CLiveEntryWindow found;
    CProcessStamp process;
    return FindWindow(window, found, process) ? process.m_Id : 0;
}

CString GetWindowText(HWND window)
{
    CLiveEntryWindow found;
    CProcessStamp process;
    return FindWindow(window, found, process) ? found.m_Title : CString();
}

bool SetForegroundWindow(HWND window)
{
    if (CWnd* own = FindOwn(window))
        return own->SetForegroundWindow();
    return SendOrder(window, {EWindowOrder::Top});
}

bool MoveWindow(HWND window, const CRect& place)
{
    if (CWnd* own = FindOwn(window))
    {
        own->MoveWindow(place);
        return true;
    }
    return SendOrder(window, {EWindowOrder::Move, 0, place});
}

bool ShowWindow(HWND window, int command)
{
    if (CWnd* own = FindOwn(window))
    {
        own->ShowWindow(command);
        return true;
    }
    return command == SW_MAXIMIZE ? SendOrder(window, {EWindowOrder::Maximise}) : Refuse();
}

bool PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (CWnd* own = FindOwn(window))
        return own->PostMessage(message, wParam, lParam);
    CWindowOrder order;
    return MakePostOrder(message, wParam, lParam, order) ? SendOrder(window, std::move(order))
                                                         : Refuse();
}

void SetLiveInstance(int instance)
{
    COwnWindows::Get().SetInstance(instance);
}

LiveEventHandler SetLiveEventHandler(LiveEventHandler handler)
{
    return eventHandler.exchange(handler);
}

LiveEventHandler GetLiveEventHandler()
{
    return eventHandler.load();
}

int SendLiveEvent(const CString& name, LPARAM a, LPARAM b)
{
    const std::string order =
        FormatWindowOrder({EWindowOrder::Event, 0, {}, static_cast<WPARAM>(a), b, name});
    if (order.empty())
        return 0;
    const CString application = AfxGetAppName();
    int count = 0;
    for (const CLiveEntry& entry : ReadLiveEntries())
    {
        if (entry.m_Application == application && SendWindowOrder(entry.m_Process, order))
            ++count;
    }
    return count;
}

} // namespace utility
