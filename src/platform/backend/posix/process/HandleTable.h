#pragma once

#include "platform/base/Types.h"
#include "platform/system/process/Handle.h"

#include <memory>

namespace utility
{

/// What a handle stands for; each kind is a class of its own. It lives until the handle is closed
/// and the last call that uses it has returned.
struct HandleRecord
{
    virtual ~HandleRecord() = default;

    /// As WaitForSingleObject.
    virtual DWORD Wait(DWORD milliseconds) = 0;
};

/// A new handle for the record.
HANDLE AddHandle(std::shared_ptr<HandleRecord> record);

/// The record of a handle; null, with ERROR_INVALID_HANDLE, if there is none.
std::shared_ptr<HandleRecord> FindHandle(HANDLE handle);

/// The same if the handle is of that kind.
template <typename TRecord>
std::shared_ptr<TRecord> FindHandleAs(HANDLE handle);

/// Waits until one of `events` (of poll) comes from the descriptor: what a kind's Wait is made of.
DWORD WaitForDescriptor(int descriptor, short events, DWORD milliseconds);

/// Makes ERROR_INVALID_HANDLE the thread's last error.
void FailOnHandle();

template <typename TRecord>
std::shared_ptr<TRecord> FindHandleAs(HANDLE handle)
{
    const std::shared_ptr<HandleRecord> record = FindHandle(handle);
    std::shared_ptr<TRecord> wanted = std::dynamic_pointer_cast<TRecord>(record);
    if (record && !wanted)
        FailOnHandle();
    return wanted;
}

} // namespace utility
