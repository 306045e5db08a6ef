#pragma once

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/system/window/LiveEntry.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace utility
{

/// The address of a live program's socket. However long the folder's name is, it fits: it leads
/// over the open folder, so the object must live as long as the address is used.
class CLiveAddress
{
public:
    explicit CLiveAddress(const CProcessStamp& process);

    /// False, with the last error, if there is no folder.
    explicit operator bool() const { return static_cast<bool>(m_Folder); }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&m_Address); }
    socklen_t GetLength() const { return sizeof m_Address; }
    const char* GetPath() const { return m_Address.sun_path; }

private:
    CDescriptor m_Folder;
    sockaddr_un m_Address = {};
};

} // namespace utility
