#include "platform/system/file/FolderWatch.h"

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/window/MessageLoop.h"

#include <cerrno>
#include <map>
#include <set>
#include <sys/inotify.h>

namespace utility
{

namespace
{

constexpr DWORD TICK = 100;       // milliseconds
constexpr int LONGEST_BURST = 20; // ticks after which a call is made though changes go on
constexpr std::size_t BUFFER_SIZE = 64 * 1024;

constexpr std::uint32_t ENTRIES_CHANGE = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                         IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

/// What a watched folder is watched for.
struct CWatchedFolder
{
    bool m_IsWanted = false;         // itself
    std::set<std::string> m_Awaited; // names in it that would lead to absent folders
};

using CWatchedFolders = std::map<int, CWatchedFolder>; // by the system's number of the watch

} // namespace

struct CFolderWatch::CBackend
{
    CBackend(const std::vector<CString>& folders, std::function<void()> changed, EWatched what);
    ~CBackend();

    bool WatchAll();
    void OnTick();

private:
    bool Watch(CDescriptor& events, CWatchedFolders& watched, std::string folder) const;
    bool ReadEvents();
    bool IsChange(const inotify_event& event) const;

    IMessageLoop& m_Loop = GetMessageLoop();
    const EWatched m_What;
    std::vector<std::string> m_Folders; // on disk, without a closing separator
    std::function<void()> m_Changed;
    CDescriptor m_Events;
    CWatchedFolders m_Watched;
    UINT m_Timer = 0;
    int m_BurstTicks = 0; // since the first change that has not been told; 0 if there is none
};

CFolderWatch::CBackend::CBackend(const std::vector<CString>& folders, std::function<void()> changed,
                                 EWatched what)
    : m_What(what),
      m_Changed(std::move(changed))
{
    for (const CString& folder : folders)
    {
        std::string name = DiskPath(GetFullPathNameW(folder).View());
        while (name.size() > 1 && name.ends_with('/'))
            name.pop_back();
        if (!name.empty())
            m_Folders.push_back(name);
    }
    m_Timer = m_Loop.SetTimer(TICK, [this] { OnTick(); });
}

CFolderWatch::CBackend::~CBackend()
{
    m_Loop.KillTimer(m_Timer);
}

/// A folder, or the nearest one above it that is there, which then awaits the way to it.
bool CFolderWatch::CBackend::Watch(CDescriptor& events, CWatchedFolders& watched,
                                   std::string folder) const
{
    const std::uint32_t writing = m_What == EWatched::Writing ? IN_MODIFY : 0;
    std::string awaited;
    for (;;)
    {
        const int watch =
            inotify_add_watch(events.Get(), folder.c_str(), ENTRIES_CHANGE | writing | IN_ONLYDIR);
        if (watch >= 0)
        {
            CWatchedFolder& place = watched[watch];
            if (awaited.empty())
                place.m_IsWanted = true;
            else
                place.m_Awaited.insert(awaited);
            return true;
        }
        const std::size_t separator = folder.rfind('/');
        const bool isAway = errno == ENOENT || errno == ENOTDIR || errno == EACCES;
        if (!isAway || separator == std::string::npos || folder.size() == 1)
            return isAway || FailOnPath(errno, folder);
        awaited = folder.substr(separator + 1);
        folder = separator == 0 ? "/" : folder.substr(0, separator);
    }
}

/// In place of the present watches, so that folders that came, went or moved are watched rightly.
bool CFolderWatch::CBackend::WatchAll()
{
    CDescriptor events(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!events)
        return FailOnPath(errno, std::string());
    CWatchedFolders watched;
    for (const std::string& folder : m_Folders)
    {
        if (!Watch(events, watched, folder))
            return false;
    }
    m_Events = std::move(events);
    m_Watched = std::move(watched);
    return true;
}

bool CFolderWatch::CBackend::IsChange(const inotify_event& event) const
{
    if ((event.mask & IN_Q_OVERFLOW) != 0)
        return true;
    const auto found = m_Watched.find(event.wd);
    if (found == m_Watched.end())
        return false;
    const CWatchedFolder& folder = found->second;
    if (folder.m_IsWanted || (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0)
        return true;
    return event.len > 0 && folder.m_Awaited.contains(event.name);
}

/// Whether something has changed since the last reading.
bool CFolderWatch::CBackend::ReadEvents()
{
    bool isChanged = false;
    alignas(inotify_event) char buffer[BUFFER_SIZE];
    for (;;)
    {
        const ssize_t length = read(m_Events.Get(), buffer, sizeof buffer);
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return isChanged;
        for (const char* next = buffer; next < buffer + length;)
        {
            const auto* const event = reinterpret_cast<const inotify_event*>(next);
            isChanged = isChanged || IsChange(*event);
            next += sizeof(inotify_event) + event->len;
        }
    }
}

void CFolderWatch::CBackend::OnTick()
{
    const bool isChanged = ReadEvents();
    if (!isChanged && m_BurstTicks == 0)
        return;
    ++m_BurstTicks;
    if (isChanged && m_What == EWatched::Entries && m_BurstTicks < LONGEST_BURST)
        return;
    m_BurstTicks = 0;
    static_cast<void>(WatchAll()); // before the call, so that what changes during it is met
    const std::function<void()> changed = m_Changed;
    changed(); // may end this object
}

CFolderWatch::CFolderWatch() = default;

CFolderWatch::~CFolderWatch() = default;

bool CFolderWatch::Start(const std::vector<CString>& folders, std::function<void()> changed,
                         EWatched what)
{
    m_Backend = std::make_unique<CBackend>(folders, std::move(changed), what);
    if (m_Backend->WatchAll())
        return true;
    m_Backend.reset();
    return false;
}

void CFolderWatch::Stop()
{
    m_Backend.reset();
}

} // namespace utility
