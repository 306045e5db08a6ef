#include "files/zip/ZipSource.h"

#include "files/zip/ZipResult.h"
#include "platform/system/Clock.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t PIECE = 64 * 1024;

} // namespace

std::uint32_t CZipSource::OpenFile(const char16_t* path)
{
    m_Handle = OpenToRead(path);
    if (!m_Handle)
        return ZIP_NO_FILE;
    CFileStatus status;
    m_IsReadOnly = CFile::GetStatus(path, status) && status.IsReadOnly();
    TakeTimes();
    return ZIP_SUCCESS;
}

std::uint32_t CZipSource::OpenHandle(HANDLE handle, std::optional<std::uint64_t> length)
{
    m_Handle = COwnHandle::CopyOf(handle);
    if (!m_Handle)
        return ZIP_NO_DUPLICATE;
    TakeTimes();
    m_Due = length;
    if (length)
        m_Size = length;
    return ZIP_SUCCESS;
}

void CZipSource::OpenMemory(const void* memory, std::size_t length)
{
    m_Memory = {static_cast<const char*>(memory), length};
    m_Size = length;
    TakeTimes();
}

std::uint32_t CZipSource::OpenFolder(const char16_t* path)
{
    m_IsFolder = true;
    m_Size = 0;
    TakeTimes();
    if (!path)
        return ZIP_SUCCESS;
    CFileStatus status;
    if (!CFile::GetStatus(path, status) || !status.IsDirectory())
        return ZIP_NO_FILE;
    m_Times = {FileTimeOfUnix(status.m_mtime.GetTime()), FileTimeOfUnix(status.m_atime.GetTime()),
               FileTimeOfUnix(status.m_ctime.GetTime())};
    return ZIP_SUCCESS;
}

/// Those of the file, or the present for what is none.
void CZipSource::TakeTimes()
{
    const FILETIME now = CoFileTimeNow();
    m_Times = {now, now, now};
    std::int64_t size = 0;
    std::int64_t place = 0;
    if (!m_Handle || !GetFileSizeEx(m_Handle.Get(), size) ||
        !SetFilePointerEx(m_Handle.Get(), 0, &place, FILE_CURRENT))
        return;
    m_Size = static_cast<std::uint64_t>(std::max<std::int64_t>(size - place, 0));
    GetFileTime(m_Handle.Get(), &m_Times.m_Created, &m_Times.m_Accessed, &m_Times.m_Modified);
}

std::uint32_t CZipSource::Next(std::string_view& piece)
{
    if (m_Handle)
        return NextOfHandle(piece);
    piece = m_Memory.substr(0, PIECE);
    m_Memory.remove_prefix(piece.size());
    return ZIP_SUCCESS;
}

std::uint32_t CZipSource::NextOfHandle(std::string_view& piece)
{
    m_Buffer.resize(PIECE);
    const std::uint64_t wanted = m_Due ? std::min<std::uint64_t>(*m_Due, PIECE) : PIECE;
    DWORD done = 0;
    if (wanted > 0 && !ReadFile(m_Handle.Get(), m_Buffer.data(), static_cast<DWORD>(wanted), done))
        return ZIP_READ_FAILED;
    if (done == 0 && m_Due.value_or(0) > 0)
        return ZIP_SIZE_WRONG;
    if (m_Due)
        *m_Due -= done;
    piece = std::string_view(m_Buffer.data(), done);
    return ZIP_SUCCESS;
}

} // namespace utility
