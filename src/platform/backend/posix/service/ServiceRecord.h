#pragma once

#include "platform/backend/posix/process/HandleTable.h"
#include "platform/backend/posix/service/ServiceBus.h"
#include "platform/base/String.h"

#include <memory>
#include <mutex>
#include <string>

namespace utility
{

/// The manager behind its handle and behind those of its services.
struct CServiceManagerRecord : public HandleRecord
{
    DWORD Wait(DWORD) override { return WAIT_OBJECT_0; }

    std::mutex m_Lock; // over the bus: held for a call and its answer
    CServiceBus m_Bus;
};

/// A service behind its handle. Results are classic codes.
class CServiceRecord : public HandleRecord
{
public:
    /// `path` is how the bus calls the service.
    CServiceRecord(std::shared_ptr<CServiceManagerRecord> manager, std::string name,
                   std::string path);

    /// Signalled once the manager told of a change.
    DWORD Wait(DWORD milliseconds) override;

    DWORD ReadState(DWORD& state);
    DWORD OrderStart();
    /// 1062 for a service that does not run.
    DWORD OrderStop();

    DWORD ReadStartType(DWORD& startType);
    DWORD ChangeStartType(DWORD startType);
    DWORD ChangeDescription(const CString& description);
    DWORD Delete();

private:
    DWORD ReadStateLocked(DWORD& state);
    DWORD ChangeLinks(DWORD startType);

    const std::shared_ptr<CServiceManagerRecord> m_Manager;
    const std::string m_Name;
    const std::string m_Path;
    std::string m_StopOrder; // the last stop we ordered; empty before
};

} // namespace utility
