#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/LiveEntry.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace utility
{

/// The place where the programs of one user see each other: an entry and a socket a program, in a
/// folder that nobody else may enter (platform/backend/posix/window).

/// Of the calling process.
CProcessStamp GetOwnStamp();

/// Puts the calling process's entry there, or in the place of its last one; others see the old or
/// the new one, whole. False, with the last error, if there can be no folder.
bool PublishLiveEntry(const CLiveEntry& entry);
void WithdrawLiveEntry();

/// The entries of all living processes but the calling one, in the order of their ids. What dead
/// ones left there is removed.
UTILITY_CORE_API std::vector<CLiveEntry> ReadLiveEntries();

/// Hands an order to a process. False with 6 if it is gone, 121 if it does not take orders in
/// time: it waits a quarter of a second.
bool SendWindowOrder(const CProcessStamp& process, std::string_view text);

/// Takes the orders that other processes of this user send to the calling one, on a thread of its
/// own, until it goes.
class CLiveReceiver
{
public:
    /// Gets each order's text, with a ticket that is given back by its end: while too many are out,
    /// further orders stay with their senders.
    using Handler = std::function<void(std::string_view text, std::shared_ptr<void> ticket)>;

    /// Null, with the last error, if there can be no folder or no socket.
    static std::unique_ptr<CLiveReceiver> Start(Handler handler);
    ~CLiveReceiver();
    CLiveReceiver(const CLiveReceiver&) = delete;
    CLiveReceiver& operator=(const CLiveReceiver&) = delete;

private:
    struct CBackend; // platform/backend/posix/window/LiveReceiver.cpp
    explicit CLiveReceiver(std::unique_ptr<CBackend> backend);

    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
