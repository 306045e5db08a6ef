#pragma once

#include "platform/system/file/FolderWatch.h"

namespace utility
{

class CAutoFileList;

/// Keeps a list of files true to its folders while they change; a burst of changes is one refresh.
///
/// User-interface thread, and its message loop must run. The list must outlive the watch; when its
/// folders are others, or others are enabled, the watch is to be started anew.
class UTILITY_CORE_API CAutoFileListWatch
{
public:
    explicit CAutoFileListWatch(CAutoFileList& list) : m_List(list) {}

    /// Calls `changed` after each refresh that found other files. False with the last error if
    /// folders cannot be watched.
    [[nodiscard]] bool Start(bool dropVanished, std::function<void()> changed);
    void Stop() { m_Watch.Stop(); }

private:
    CAutoFileList& m_List;
    CFolderWatch m_Watch;
};

} // namespace utility
