#pragma once

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/process/HandleTable.h"

namespace utility
{

/// The kind of handle that reads and writes bytes: an open descriptor.
class CFileRecord : public HandleRecord
{
public:
    explicit CFileRecord(CDescriptor descriptor) : m_Descriptor(std::move(descriptor)) {}

    int GetDescriptor() const { return m_Descriptor.Get(); }
    DWORD Wait(DWORD milliseconds) override;

private:
    CDescriptor m_Descriptor;
};

/// A handle that owns the descriptor.
HANDLE AddFileHandle(CDescriptor descriptor);

} // namespace utility
