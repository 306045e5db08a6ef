#pragma once

#include "files/zip/ZipTimes.h"
#include "platform/system/file/FileHandle.h"

#include <optional>
#include <string_view>
#include <vector>

namespace utility
{

/// Where the bytes of a new entry come from: a file, an open handle, memory, or nowhere for a
/// folder.
class CZipSource
{
public:
    CZipSource() = default;
    CZipSource(const CZipSource&) = delete;
    CZipSource& operator=(const CZipSource&) = delete;

    // Each gives a result code
    std::uint32_t OpenFile(const char16_t* path);
    /// From its present place on; `length` bytes of it if given, which then must come.
    std::uint32_t OpenHandle(HANDLE handle, std::optional<std::uint64_t> length);
    void OpenMemory(const void* memory, std::size_t length);
    /// The folder at a path, for its times; null for one of the present.
    std::uint32_t OpenFolder(const char16_t* path);

    bool IsFolder() const { return m_IsFolder; }
    bool IsReadOnly() const { return m_IsReadOnly; }
    const CZipTimes& GetTimes() const { return m_Times; }
    /// None for a pipe.
    std::optional<std::uint64_t> GetSize() const { return m_Size; }

    /// The next piece, empty behind the last; valid until the next call.
    std::uint32_t Next(std::string_view& piece);

private:
    void TakeTimes();
    std::uint32_t NextOfHandle(std::string_view& piece);

    COwnHandle m_Handle;
    std::string_view m_Memory;
    std::vector<char> m_Buffer;
    CZipTimes m_Times;
    std::optional<std::uint64_t> m_Size;
    std::optional<std::uint64_t> m_Due; // bytes that must still come
    bool m_IsFolder = false;
    bool m_IsReadOnly = false;
};

} // namespace utility
