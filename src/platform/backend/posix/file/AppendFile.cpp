#include "platform/system/file/AppendFile.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr mode_t NEW_FILE_MODE = 0666; // less the user's mask

} // namespace

CAppendFile::~CAppendFile()
{
    Close();
}

void CAppendFile::SetPath(const CString& path)
{
    Close();
    m_Path = path;
}

bool CAppendFile::Append(std::string_view bytes)
{
    if (!MakeCurrent())
    {
        SetLastErrorFromErrno();
        return false;
    }
    const ssize_t written = write(m_Descriptor, bytes.data(), bytes.size());
    if (written < 0)
        SetLastErrorFromErrno();
    else if (static_cast<std::size_t>(written) < bytes.size())
        SetLastError(ERROR_DISK_FULL);
    return written >= 0 && static_cast<std::size_t>(written) == bytes.size();
}

/// Opens the file that bears the name, unless it is the one that is open.
bool CAppendFile::MakeCurrent()
{
    struct stat named = {};
    if (m_Descriptor != CLOSED && stat(m_DiskPath.c_str(), &named) == 0 &&
        named.st_dev == m_Device && named.st_ino == m_Number)
        return true;

    Close();
    m_DiskPath = DiskPath(m_Path.View());
    m_Descriptor =
        open(m_DiskPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, NEW_FILE_MODE);
    if (m_Descriptor == CLOSED || fstat(m_Descriptor, &named) != 0)
        return false;
    m_Device = named.st_dev;
    m_Number = named.st_ino;
    return true;
}

void CAppendFile::Close()
{
    if (m_Descriptor != CLOSED)
        close(m_Descriptor);
    m_Descriptor = CLOSED;
}

} // namespace utility
