#include "platform/system/file/File.h"

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/FileShare.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

struct CFile::CBackend
{
    CDescriptor Descriptor;
    CString Path;               // classic, whole
    std::string DiskName;       // for codes of later failures
    std::uint64_t Position = 0; // counted here, so that a pipe has one too
    bool MayRead = false;
    bool MayWrite = false;
};

namespace
{

constexpr UINT ACCESS_MASK = 0x3;
constexpr UINT SHARE_MASK = 0x70;
constexpr int OPEN_TRIES = 8; // while others replace the file under its name

CFileShare ShareOf(UINT flags)
{
    CFileShare share;
    const UINT access = flags & ACCESS_MASK;
    share.Reads = access != CFile::modeWrite;
    share.Writes = access != CFile::modeRead;
    switch (flags & SHARE_MASK)
    {
    case CFile::shareDenyNone:
        break;
    case CFile::shareDenyRead:
        share.DeniesReaders = true;
        break;
    case CFile::shareDenyWrite:
        share.DeniesWriters = true;
        break;
    case CFile::shareExclusive:
        share.DeniesReaders = true;
        share.DeniesWriters = true;
        break;
    default:
        share.DeniesReaders = share.Writes;
        share.DeniesWriters = true;
        break;
    }
    return share;
}

/// Marks need a readable descriptor, so a writer asks for both and does with one where it must.
CDescriptor OpenOnDisk(const std::string& name, UINT flags)
{
    const int common = O_CLOEXEC | O_NOCTTY | ((flags & CFile::modeCreate) != 0 ? O_CREAT : 0);
    const bool writes = (flags & ACCESS_MASK) != CFile::modeRead;
    const int descriptor = open(name.c_str(), common | (writes ? O_RDWR : O_RDONLY), NEW_FILE_MODE);
    if (descriptor < 0 && errno == EACCES && (flags & ACCESS_MASK) == CFile::modeWrite)
        return CDescriptor(open(name.c_str(), common | O_WRONLY, NEW_FILE_MODE));
    return CDescriptor(descriptor);
}

bool IsStillNamed(const std::string& name, const struct stat& opened)
{
    struct stat named = {};
    return stat(name.c_str(), &named) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

/// One try: 0 with the descriptor, a code, or none if the name led to another file meanwhile.
std::optional<DWORD> TryOpen(const std::string& name, UINT flags, CDescriptor& result)
{
    const bool writes = (flags & ACCESS_MASK) != CFile::modeRead;
    struct stat before = {};
    if (writes && stat(name.c_str(), &before) == 0 && S_ISREG(before.st_mode) &&
        IsReadOnlyOnDisk(name, before.st_mode))
        return ERROR_ACCESS_DENIED;

    CDescriptor descriptor = OpenOnDisk(name, flags);
    if (!descriptor)
        return PathErrorCode(errno, name);
    struct stat opened = {};
    if (fstat(descriptor.Get(), &opened) != 0)
        return PathErrorCode(errno, name);
    if (S_ISDIR(opened.st_mode))
        return ERROR_ACCESS_DENIED;
    if (S_ISREG(opened.st_mode))
    {
        if (const DWORD code = TakeFileShare(descriptor.Get(), ShareOf(flags));
            code != ERROR_SUCCESS)
            return code;
        if (!IsStillNamed(name, opened))
            return std::nullopt;
        const bool empties =
            (flags & CFile::modeCreate) != 0 && (flags & CFile::modeNoTruncate) == 0;
        if (empties && opened.st_size > 0 && ftruncate(descriptor.Get(), 0) != 0)
            return PathErrorCode(errno, name);
    }
    result = std::move(descriptor);
    return ERROR_SUCCESS;
}

DWORD OpenDescriptor(const std::string& name, UINT flags, CDescriptor& result)
{
    if (name.empty())
        return ERROR_PATH_NOT_FOUND;
    if ((flags & ACCESS_MASK) == ACCESS_MASK)
        return ERROR_INVALID_PARAMETER;
    for (int i = 0; i < OPEN_TRIES; ++i)
    {
        if (const std::optional<DWORD> code = TryOpen(name, flags, result))
            return *code;
    }
    return ERROR_SHARING_VIOLATION;
}

} // namespace

CFile::CFile() = default;

CFile::CFile(const char16_t* path, UINT flags)
{
    CFileException exception;
    if (!CFile::Open(path, flags, &exception))
        CFileException::ThrowOsError(exception.m_lOsError, path);
}

CFile::~CFile() = default;

bool CFile::IsOpen() const
{
    return m_Backend != nullptr;
}

bool CFile::Open(const char16_t* path, UINT flags, CFileException* error)
{
    const CString text(path);
    auto backend = std::make_unique<CBackend>();
    backend->DiskName = DiskPath(text.View());
    const DWORD code = OpenDescriptor(backend->DiskName, flags, backend->Descriptor);
    if (code != ERROR_SUCCESS)
    {
        SetLastError(code);
        if (error != nullptr)
        {
            error->m_lOsError = static_cast<LONG>(code);
            error->m_cause = CFileException::OsErrorToException(error->m_lOsError);
            error->m_strFileName = text;
        }
        return false;
    }
    backend->Path = GetFullPathNameW(text);
    backend->MayRead = (flags & ACCESS_MASK) != modeWrite;
    backend->MayWrite = (flags & ACCESS_MASK) != modeRead;
    m_Backend = std::move(backend);
    return true;
}

void CFile::Close()
{
    if (!m_Backend)
        return;
    const std::unique_ptr<CBackend> backend = std::move(m_Backend);
    // On network disks the last writes may fail as late as here.
    if (backend->Descriptor.Close() != 0 && errno != EINTR)
        CFileException::ThrowOsError(static_cast<LONG>(PathErrorCode(errno, backend->DiskName)),
                                     backend->Path);
}

void CFile::Abort()
{
    m_Backend.reset();
}

CFile::CBackend& CFile::GetBackend() const
{
    if (!m_Backend)
        CFileException::ThrowOsError(ERROR_INVALID_HANDLE);
    return *m_Backend;
}

void CFile::ThrowSystemError() const
{
    const LONG code = static_cast<LONG>(PathErrorCode(errno, m_Backend->DiskName));
    CFileException::ThrowOsError(code, m_Backend->Path);
}

UINT CFile::Read(void* bytes, UINT count)
{
    CBackend& backend = GetBackend();
    if (!backend.MayRead)
        CFileException::ThrowOsError(ERROR_ACCESS_DENIED, backend.Path);
    UINT done = 0;
    while (done < count)
    {
        const ssize_t piece =
            read(backend.Descriptor.Get(), static_cast<char*>(bytes) + done, count - done);
        if (piece < 0 && errno == EINTR)
            continue;
        if (piece < 0)
            ThrowSystemError();
        if (piece == 0)
            break;
        done += static_cast<UINT>(piece);
        backend.Position += static_cast<std::uint64_t>(piece);
    }
    return done;
}

void CFile::Write(const void* bytes, UINT count)
{
    CBackend& backend = GetBackend();
    if (!backend.MayWrite)
        CFileException::ThrowOsError(ERROR_ACCESS_DENIED, backend.Path);
    UINT done = 0;
    while (done < count)
    {
        const ssize_t piece =
            write(backend.Descriptor.Get(), static_cast<const char*>(bytes) + done, count - done);
        if (piece < 0 && errno == EINTR)
            continue;
        if (piece < 0)
            ThrowSystemError();
        done += static_cast<UINT>(piece);
        backend.Position += static_cast<std::uint64_t>(piece);
    }
}

void CFile::Flush()
{
    // Pipes and devices have nothing to wait for.
    if (fsync(GetBackend().Descriptor.Get()) != 0 && errno != EINVAL)
        ThrowSystemError();
}

std::uint64_t CFile::Seek(std::int64_t offset, UINT from)
{
    CBackend& backend = GetBackend();
    const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
    const off_t place = lseek(backend.Descriptor.Get(), offset, whence);
    if (place < 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        throw new CFileException(CFileException::badSeek, ERROR_INVALID_PARAMETER, backend.Path);
    }
    backend.Position = static_cast<std::uint64_t>(place);
    return backend.Position;
}

std::uint64_t CFile::GetPosition() const
{
    return GetBackend().Position;
}

std::uint64_t CFile::GetLength() const
{
    struct stat status = {};
    if (fstat(GetBackend().Descriptor.Get(), &status) != 0)
        ThrowSystemError();
    return static_cast<std::uint64_t>(status.st_size);
}

void CFile::SetLength(std::uint64_t length)
{
    CBackend& backend = GetBackend();
    if (!backend.MayWrite)
        CFileException::ThrowOsError(ERROR_ACCESS_DENIED, backend.Path);
    if (ftruncate(backend.Descriptor.Get(), static_cast<off_t>(length)) != 0)
        ThrowSystemError();
    CFile::Seek(static_cast<std::int64_t>(length), begin);
}

CString CFile::GetFilePath() const
{
    return m_Backend ? m_Backend->Path : CString();
}

CString CFile::GetFileName() const
{
    const CString path = CFile::GetFilePath();
    return path.Mid(path.ReverseFind(u'\\') + 1);
}

} // namespace utility
