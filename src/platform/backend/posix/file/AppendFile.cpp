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

struct CFileIdentity
{
    std::uint64_t m_Device;
    std::uint64_t m_Number;
};

/// Takes back the part of a write for which the disk had room, unless somebody has written behind
/// it.
void TakeBack(int descriptor, ssize_t written)
{
    struct stat status = {};
    const off_t end = lseek(descriptor, 0, SEEK_CUR);
    if (fstat(descriptor, &status) == 0 && status.st_size == end)
        static_cast<void>(!ftruncate(descriptor, end - written)); // else it stays torn
}

/// The file of that name, or the open one for an empty name.
///
/// Asks for the number alone: on some disks a look at a file's times makes the next write to it a
/// third dearer.
bool Identify(int descriptor, const char* name, CFileIdentity& identity)
{
    struct statx status = {};
    if (statx(descriptor, name, AT_EMPTY_PATH | AT_STATX_DONT_SYNC, STATX_INO, &status) != 0)
        return false;
    identity = {std::uint64_t(status.stx_dev_major) << 32U | status.stx_dev_minor, status.stx_ino};
    return true;
}

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
    if (written == static_cast<ssize_t>(bytes.size()))
        return true;
    if (written < 0)
    {
        SetLastErrorFromErrno();
        return false;
    }
    TakeBack(m_Descriptor, written);
    SetLastError(ERROR_DISK_FULL);
    return false;
}

/// Opens the file that bears the name, unless it is the one that is open.
bool CAppendFile::MakeCurrent()
{
    CFileIdentity file = {};
    if (m_Descriptor != CLOSED && Identify(AT_FDCWD, m_DiskPath.c_str(), file) &&
        file.m_Device == m_Device && file.m_Number == m_Number)
        return true;

    Close();
    m_DiskPath = DiskPath(m_Path.View());
    m_Descriptor =
        open(m_DiskPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, NEW_FILE_MODE);
    if (m_Descriptor == CLOSED || !Identify(m_Descriptor, "", file))
        return false;
    m_Device = file.m_Device;
    m_Number = file.m_Number;
    return true;
}

void CAppendFile::Close()
{
    if (m_Descriptor != CLOSED)
        close(m_Descriptor);
    m_Descriptor = CLOSED;
}

} // namespace utility
