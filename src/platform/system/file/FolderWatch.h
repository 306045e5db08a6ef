#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <functional>
#include <memory>
#include <vector>

namespace utility
{

/// What a folder is watched for.
enum class EWatched
{
    Entries, // those that come and go, or are closed after writing
    Writing  // that, and each write to a file that stays open
};

/// Tells when entries of folders come, go or change; the call comes on the user-interface thread.
///
/// Many changes are one call. For entries it comes when nothing has changed for a tenth of a
/// second, and while changes go on every two seconds; for writing it comes every tenth of a second.
/// What changes before the call is made belongs to it. A folder that is not there is awaited and
/// one that vanishes is told; folders below are not watched. Runs by the message loop, so nothing
/// is called unless that runs.
class UTILITY_CORE_API CFolderWatch
{
public:
    CFolderWatch();
    ~CFolderWatch();
    CFolderWatch(const CFolderWatch&) = delete;
    CFolderWatch& operator=(const CFolderWatch&) = delete;

    /// Watches these folders instead of those before. False with the last error, and nothing is
    /// watched, if the system has no watches left. `changed` may start or stop the watch.
    [[nodiscard]] bool Start(const std::vector<CString>& folders, std::function<void()> changed,
                             EWatched what = EWatched::Entries);
    void Stop();

private:
    struct CBackend; // platform/backend/posix/file/FolderWatch.cpp
    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
