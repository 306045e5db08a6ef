#include "platform/system/window/OwnWindows.h"

#include "platform/base/LastError.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/ObeyOrder.h"
#include "platform/system/window/WinApp.h"

#include <algorithm>
#include <atomic>

namespace utility
{

namespace
{

constinit std::atomic<COwnWindows*> ownWindows = nullptr;

DWORD NumberOf(HWND window)
{
    return static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(window));
}

} // namespace

COwnWindows& COwnWindows::Get()
{
    // Never destroyed: a host's static windows end late. What a fork brings along is its parent's.
    COwnWindows* present = ownWindows.load();
    if (present && present->m_Entry.m_Process.m_Id == GetCurrentProcessId())
        return *present;
    auto* made = new COwnWindows(GetOwnStamp());
    if (ownWindows.compare_exchange_strong(present, made))
        return *made;
    delete made;
    return *present;
}

COwnWindows::COwnWindows(const CProcessStamp& process)
{
    m_Entry.m_Process = process;
}

void COwnWindows::Add(HWND window, const CString& className, const CString& title)
{
    {
        const std::lock_guard lock(m_Lock);
        m_Entry.m_Windows.push_back({NumberOf(window), className, title.Left(LIVE_TITLE_LIMIT)});
    }
    const CLastErrorKeeper keeper; // a window is a window, whether others see it or not
    if (!m_Receiver)
        m_Receiver = CLiveReceiver::Start(ObeyOrderLater);
    Publish();
}

void COwnWindows::Remove(HWND window)
{
    {
        const std::lock_guard lock(m_Lock);
        std::vector<CLiveEntryWindow>& windows = m_Entry.m_Windows;
        if (std::erase_if(windows, [window](const CLiveEntryWindow& one)
                          { return one.m_Number == NumberOf(window); }) == 0)
            return;
    }
    const CLastErrorKeeper keeper;
    if (m_Entry.m_Windows.empty())
    {
        WithdrawLiveEntry();
        m_Receiver.reset();
    }
    else
    {
        // Without a look at the program's name, which may be gone before a static window.
        PublishLiveEntry(GetEntry());
    }
}

void COwnWindows::SetTitle(HWND window, const CString& title)
{
    const CString shown = title.Left(LIVE_TITLE_LIMIT);
    {
        const std::lock_guard lock(m_Lock);
        const std::size_t index = Find(window);
        if (index == m_Entry.m_Windows.size() || m_Entry.m_Windows[index].m_Title == shown)
            return;
        m_Entry.m_Windows[index].m_Title = shown;
    }
    Publish();
}

void COwnWindows::BringToTop(HWND window)
{
    {
        const std::lock_guard lock(m_Lock);
        const std::size_t index = Find(window);
        if (index == 0 || index == m_Entry.m_Windows.size())
            return;
        const auto first = m_Entry.m_Windows.begin();
        const auto place = first + static_cast<std::ptrdiff_t>(index);
        std::rotate(first, place, place + 1);
    }
    Publish();
}

void COwnWindows::SetInstance(int instance)
{
    {
        const std::lock_guard lock(m_Lock);
        m_Entry.m_Instance = instance;
    }
    if (!m_Entry.m_Windows.empty())
        Publish();
}

CLiveEntry COwnWindows::GetEntry() const
{
    const std::lock_guard lock(m_Lock);
    return m_Entry;
}

/// The count of windows if there is no such one.
std::size_t COwnWindows::Find(HWND window) const
{
    const std::vector<CLiveEntryWindow>& windows = m_Entry.m_Windows;
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [number = NumberOf(window)](const CLiveEntryWindow& one)
                                    { return one.m_Number == number; });
    return static_cast<std::size_t>(found - windows.begin());
}

/// On the main thread, the only one that changes the list: nothing newer is overtaken.
void COwnWindows::Publish()
{
    const CLastErrorKeeper keeper;
    const CString application = AfxGetAppName();
    {
        const std::lock_guard lock(m_Lock);
        m_Entry.m_Application = application;
    }
    PublishLiveEntry(GetEntry());
}

} // namespace utility
