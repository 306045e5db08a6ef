#pragma once

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/process/HandleTable.h"
#include "platform/base/time/FileTime.h"

#include <ctime>

namespace utility
{

/// The kind of handle that reads and writes bytes: an open descriptor.
class CFileRecord : public HandleRecord
{
public:
    CFileRecord(CDescriptor descriptor, bool mayRead, bool mayWrite)
        : m_Descriptor(std::move(descriptor)),
          m_MayRead(mayRead),
          m_MayWrite(mayWrite)
    {
    }

    int GetDescriptor() const { return m_Descriptor.Get(); }
    bool MayRead() const { return m_MayRead; }
    bool MayWrite() const { return m_MayWrite; }
    DWORD Wait(DWORD milliseconds) override;

private:
    CDescriptor m_Descriptor;
    bool m_MayRead; // the descriptor may more than its opener wanted
    bool m_MayWrite;
};

/// A handle that owns the descriptor.
HANDLE AddFileHandle(CDescriptor descriptor, bool mayRead = true, bool mayWrite = true);

/// A time as the system sets it; null leaves the present one alone.
timespec TimeSpecOf(const FILETIME* time);

} // namespace utility
