#include "files/zip/ZipInput.h"

#include "files/zip/ZipResult.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

constexpr std::size_t READ_LIMIT = std::size_t{1} << 30U; // bytes a call

} // namespace

std::uint32_t CZipInput::OpenFile(const char16_t* path)
{
    m_Handle = OpenToRead(path);
    return m_Handle ? TakeSize() : ZIP_NO_FILE;
}

std::uint32_t CZipInput::OpenHandle(HANDLE handle)
{
    m_Handle = COwnHandle::CopyOf(handle);
    return m_Handle ? TakeSize() : ZIP_NO_DUPLICATE;
}

void CZipInput::OpenMemory(const void* memory, std::size_t length)
{
    m_Memory = {static_cast<const char*>(memory), length};
    m_Size = length;
}

std::uint32_t CZipInput::TakeSize()
{
    std::int64_t size = 0;
    if (!GetFileSizeEx(m_Handle.Get(), size))
        return ZIP_UNSEEKABLE;
    m_Size = static_cast<std::uint64_t>(size);
    return ZIP_SUCCESS;
}

bool CZipInput::ReadAt(std::uint64_t offset, void* bytes, std::size_t count)
{
    if (count > m_Size || offset > m_Size - count)
        return false;
    if (count == 0)
        return true;
    if (!m_Handle)
    {
        std::memcpy(bytes, m_Memory.data() + offset, count);
        return true;
    }
    if (!SetFilePointerEx(m_Handle.Get(), static_cast<std::int64_t>(offset), nullptr, FILE_BEGIN))
        return false;
    for (auto* place = static_cast<char*>(bytes); count > 0;)
    {
        DWORD done = 0;
        const auto wanted = static_cast<DWORD>(std::min(count, READ_LIMIT));
        if (!ReadFile(m_Handle.Get(), place, wanted, done) || done == 0)
            return false;
        place += done;
        count -= done;
    }
    return true;
}

} // namespace utility
