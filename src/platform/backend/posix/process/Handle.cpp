#include "platform/system/process/Handle.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/process/HandleTable.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <climits>
#include <mutex>
#include <poll.h>
#include <time.h>
#include <unordered_map>

namespace utility
{

namespace
{

constexpr std::uintptr_t HANDLE_STEP = 4; // as callers know handles: never odd, never 0

struct CHandleTable
{
    std::mutex m_Lock;
    std::unordered_map<HANDLE, std::shared_ptr<HandleRecord>> m_Records;
    std::uintptr_t m_Last = 0;
};

/// Never ended, for threads may outlive the main one.
CHandleTable& GetTable()
{
    static CHandleTable& table = *new CHandleTable;
    return table;
}

std::int64_t Milliseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

} // namespace

HANDLE AddHandle(std::shared_ptr<HandleRecord> record)
{
    CHandleTable& table = GetTable();
    const std::lock_guard lock(table.m_Lock);
    table.m_Last += HANDLE_STEP;
    const auto handle = reinterpret_cast<HANDLE>(table.m_Last);
    table.m_Records.emplace(handle, std::move(record));
    return handle;
}

std::shared_ptr<HandleRecord> FindHandle(HANDLE handle)
{
    CHandleTable& table = GetTable();
    const std::lock_guard lock(table.m_Lock);
    const auto found = table.m_Records.find(handle);
    if (found != table.m_Records.end())
        return found->second;
    FailOnHandle();
    return nullptr;
}

void FailOnHandle()
{
    SetLastError(ERROR_INVALID_HANDLE);
}

DWORD WaitForDescriptor(int descriptor, short events, DWORD milliseconds)
{
    const std::int64_t end = Milliseconds() + milliseconds;
    for (std::int64_t left = milliseconds;;)
    {
        pollfd wanted{descriptor, events, 0};
        const int timeout =
            milliseconds == INFINITE ? -1 : static_cast<int>(std::min<std::int64_t>(left, INT_MAX));
        const int count = ::poll(&wanted, 1, timeout);
        if (count > 0)
            return WAIT_OBJECT_0;
        if (count < 0 && errno != EINTR)
        {
            SetLastErrorFromErrno();
            return WAIT_FAILED;
        }
        if (milliseconds == INFINITE)
            continue;
        left = end - Milliseconds();
        if (left <= 0)
            return WAIT_TIMEOUT;
    }
}

bool CloseHandle(HANDLE handle)
{
    std::shared_ptr<HandleRecord> record; // ended after the lock is given back
    CHandleTable& table = GetTable();
    const std::lock_guard lock(table.m_Lock);
    const auto found = table.m_Records.find(handle);
    if (found == table.m_Records.end())
    {
        FailOnHandle();
        return false;
    }
    record = std::move(found->second);
    table.m_Records.erase(found);
    return true;
}

bool DuplicateHandle(HANDLE handle, HANDLE& copy)
{
    std::shared_ptr<HandleRecord> record = FindHandle(handle);
    if (!record)
        return false;
    copy = AddHandle(std::move(record));
    return true;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    const std::shared_ptr<HandleRecord> record = FindHandle(handle);
    return record ? record->Wait(milliseconds) : WAIT_FAILED;
}

} // namespace utility
