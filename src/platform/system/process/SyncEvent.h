#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/system/process/Handle.h"

#include <condition_variable>
#include <mutex>

namespace utility
{

/// A signal between threads of this process.
///
/// One that is reset by itself lets one waiter through for each time it was set; one reset by hand
/// lets all through until `ResetEvent`.
class UTILITY_CORE_API CEvent
{
public:
    explicit CEvent(bool isSet = false, bool resetByHand = false);
    CEvent(const CEvent&) = delete;
    CEvent& operator=(const CEvent&) = delete;

    void SetEvent();
    void ResetEvent();

    /// Waits until the event is set; false when `timeout` milliseconds have passed before.
    bool Lock(DWORD timeout = INFINITE);

private:
    std::mutex m_Lock;
    std::condition_variable m_Changed;
    bool m_IsSet;
    const bool m_ResetByHand;
};

} // namespace utility
