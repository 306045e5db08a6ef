#include "platform/system/file/File.h"

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/OpenFile.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

#include <cerrno>
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
    backend->MayRead = (flags & FILE_ACCESS_MASK) != modeWrite;
    backend->MayWrite = (flags & FILE_ACCESS_MASK) != modeRead;
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
