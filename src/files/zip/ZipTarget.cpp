#include "files/zip/ZipTarget.h"

#include "files/zip/ZipResult.h"

#include <new>

namespace utility
{

std::uint32_t CZipTarget::OpenFile(const char16_t* path)
{
    m_Handle =
        COwnHandle(CreateFileW(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS));
    return m_Handle ? ZIP_SUCCESS : ZIP_NO_FILE;
}

std::uint32_t CZipTarget::OpenHandle(HANDLE handle)
{
    m_Handle = COwnHandle::CopyOf(handle);
    return m_Handle ? ZIP_SUCCESS : ZIP_NO_DUPLICATE;
}

std::uint32_t CZipTarget::OpenMemory(void* memory, std::size_t length)
{
    if (length == 0)
        return ZIP_MEMORY_SIZE;
    // Not filled, so that the system gives pages as they are written.
    if (!memory)
        m_OwnMemory.reset(new (std::nothrow) char[length]);
    m_Memory = memory ? static_cast<char*>(memory) : m_OwnMemory.get();
    m_Capacity = length;
    return m_Memory ? ZIP_SUCCESS : ZIP_NO_MEMORY;
}

std::uint32_t CZipTarget::Put(std::string_view bytes, std::uint64_t reserve)
{
    if (m_Memory)
    {
        const std::uint64_t room = m_Capacity - m_Length;
        if (bytes.size() > room || reserve > room - bytes.size())
            return ZIP_MEMORY_SIZE;
        bytes.copy(m_Memory + m_Length, bytes.size());
    }
    else
    {
        DWORD done = 0;
        if (!WriteFile(m_Handle.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), done))
        {
            m_Length += done;
            return ZIP_WRITE_FAILED;
        }
    }
    m_Length += bytes.size();
    return ZIP_SUCCESS;
}

void CZipTarget::GoBack(std::uint64_t length)
{
    if (!m_Memory && !TruncateBy(static_cast<std::int64_t>(m_Length - length)))
        return; // a pipe keeps what went out: the directory passes over it
    m_Length = length;
}

/// Goes back in a file, and cuts it there unless others' bytes follow the archive's.
bool CZipTarget::TruncateBy(std::int64_t distance)
{
    std::int64_t size = 0;
    std::int64_t place = 0;
    const bool isAtEnd = GetFileSizeEx(m_Handle.Get(), size) &&
                         SetFilePointerEx(m_Handle.Get(), 0, &place, FILE_CURRENT) && place == size;
    if (!SetFilePointerEx(m_Handle.Get(), -distance, nullptr, FILE_CURRENT))
        return false;
    if (isAtEnd)
        (void)SetEndOfFile(m_Handle.Get()); // what stays behind the end record harms nobody
    return true;
}

} // namespace utility
