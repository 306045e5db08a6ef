#pragma once

#include "platform/base/String.h"
#include "platform/system/file/FileHandle.h"

#include <cstdint>
#include <string_view>

namespace utility
{

/// The bytes of an archive that is read, by their places: a file, an open handle or a block of
/// memory.
///
/// A handle is used through one of its own, so the caller may close his; the place in the file is
/// common to both. Memory stays the caller's and must outlive this.
class CZipInput
{
public:
    CZipInput() = default;
    CZipInput(const CZipInput&) = delete;
    CZipInput& operator=(const CZipInput&) = delete;

    // Each gives a result code
    std::uint32_t OpenFile(const char16_t* path);
    std::uint32_t OpenHandle(HANDLE handle);
    void OpenMemory(const void* memory, std::size_t length);

    std::uint64_t GetSize() const { return m_Size; }

    /// All of these bytes, or false.
    bool ReadAt(std::uint64_t offset, void* bytes, std::size_t count);

private:
    std::uint32_t TakeSize();

    COwnHandle m_Handle; // none for memory
    std::string_view m_Memory;
    std::uint64_t m_Size = 0;
};

} // namespace utility
