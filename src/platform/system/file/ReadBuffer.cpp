#include "platform/system/file/ReadBuffer.h"

#include "platform/system/file/File.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

constexpr std::size_t BLOCK_SIZE = 65536; // even, so that no 2-byte unit is cut by it

/// Where the next line feed begins, `size` if there is none. Units are counted from the start of
/// `bytes`.
std::size_t FindLineFeed(const char* bytes, std::size_t size, std::size_t unitSize)
{
    std::size_t from = 0;
    while (from < size)
    {
        const void* found = std::memchr(bytes + from, '\n', size - from);
        if (found == nullptr)
            return size;
        const std::size_t place = static_cast<std::size_t>(static_cast<const char*>(found) - bytes);
        if (unitSize == 1 || (place % 2 == 0 && place + 1 < size && bytes[place + 1] == 0))
            return place;
        from = place + 1;
    }
    return size;
}

} // namespace

void CReadBuffer::Drop()
{
    m_Next = 0;
    m_End = 0;
}

bool CReadBuffer::Move(std::int64_t offset)
{
    if (offset < -static_cast<std::int64_t>(m_Next) ||
        offset > static_cast<std::int64_t>(GetUnread()))
        return false;
    m_Next = static_cast<std::size_t>(static_cast<std::int64_t>(m_Next) + offset);
    return true;
}

bool CReadBuffer::Fill(CFile& file)
{
    m_Block.resize(BLOCK_SIZE);
    // At most half a unit is left here: a pipe may end its pieces anywhere.
    const std::size_t left = GetUnread();
    std::memmove(m_Block.data(), m_Block.data() + m_Next, left);
    const std::size_t added =
        file.CFile::Read(m_Block.data() + left, static_cast<unsigned>(BLOCK_SIZE - left));
    m_Next = 0;
    m_End = left + added;
    return added > 0;
}

std::size_t CReadBuffer::Read(CFile& file, char* bytes, std::size_t count)
{
    std::size_t done = 0;
    while (done < count)
    {
        if (GetUnread() == 0 && count - done >= BLOCK_SIZE)
            return done + file.CFile::Read(bytes + done, static_cast<unsigned>(count - done));
        if (GetUnread() == 0 && !Fill(file))
            break;
        const std::size_t piece = std::min(count - done, GetUnread());
        std::memcpy(bytes + done, m_Block.data() + m_Next, piece);
        m_Next += piece;
        done += piece;
    }
    return done;
}

bool CReadBuffer::ReadLine(CFile& file, std::size_t unitSize, std::string_view& line, bool& ended)
{
    m_LongLine.clear();
    ended = false;
    while (GetUnread() >= unitSize || Fill(file))
    {
        const char* bytes = m_Block.data() + m_Next;
        const std::size_t whole = GetUnread() / unitSize * unitSize;
        const std::size_t place = FindLineFeed(bytes, whole, unitSize);
        ended = place < whole;
        m_Next += ended ? place + unitSize : whole;
        if (ended && m_LongLine.empty())
        {
            line = std::string_view(bytes, place);
            return true;
        }
        m_LongLine.append(bytes, place);
        if (ended)
            break;
    }
    if (!ended)
    {
        m_LongLine.append(m_Block.data() + m_Next,
                          GetUnread()); // half a unit at the end of the file
        m_Next = m_End;
    }
    line = m_LongLine;
    return ended || !line.empty();
}

} // namespace utility
