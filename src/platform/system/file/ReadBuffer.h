#pragma once

#include "platform/base/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

class CFile;

/// Bytes of a file read ahead, given out as pieces or lines. The file is asked by `CFile::Read`,
/// whatever it overrides.
class UTILITY_CORE_API CReadBuffer
{
public:
    /// Bytes that were read ahead and not given out yet.
    std::size_t GetUnread() const { return m_End - m_Next; }
    void Drop();
    /// Moves over or back by that much if it stays within what is held.
    bool Move(std::int64_t offset);

    std::size_t Read(CFile& file, char* bytes, std::size_t count);

    /// The bytes up to the next line feed of 1 or 2 bytes, without it; false at the end of the
    /// file.
    ///
    /// A line is a view of the buffer, or of a text of its own if it passes the buffer's end: a
    /// line of any length costs time and memory linear in it. `ended` tells whether there was a
    /// line feed.
    bool ReadLine(CFile& file, std::size_t unitSize, std::string_view& line, bool& ended);

private:
    bool Fill(CFile& file);

    std::vector<char> m_Block;
    std::size_t m_Next = 0;
    std::size_t m_End = 0;
    std::string m_LongLine;
};

} // namespace utility
