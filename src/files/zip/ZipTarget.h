#pragma once

#include "platform/system/file/FileHandle.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace utility
{

/// Where a new archive goes: a file, an open handle, or memory of a fixed size. Counts what was
/// written from its start on.
class CZipTarget
{
public:
    CZipTarget() = default;
    CZipTarget(const CZipTarget&) = delete;
    CZipTarget& operator=(const CZipTarget&) = delete;

    // Each gives a result code
    std::uint32_t OpenFile(const char16_t* path);
    /// From its present place on; one of its own is kept.
    std::uint32_t OpenHandle(HANDLE handle);
    /// Null takes a block of that length of its own.
    std::uint32_t OpenMemory(void* memory, std::size_t length);

    bool IsMemory() const { return m_Memory != nullptr; }
    void* GetMemory() const { return m_Memory; }
    std::uint64_t GetLength() const { return m_Length; }

    /// In memory, `reserve` bytes stay free behind these.
    std::uint32_t Put(std::string_view bytes, std::uint64_t reserve = 0);

    /// Forgets what was written behind a place, where the target lets it.
    void GoBack(std::uint64_t length);

private:
    bool TruncateBy(std::int64_t distance);

    COwnHandle m_Handle;
    char* m_Memory = nullptr;
    std::unique_ptr<char[]> m_OwnMemory;
    std::uint64_t m_Capacity = 0;
    std::uint64_t m_Length = 0;
};

} // namespace utility
