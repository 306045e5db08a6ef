#include "platform/system/file/StdioFile.h"

#include "platform/base/Encoding.h"
#include "platform/system/file/FileException.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

constexpr std::size_t HELD_LIMIT = 65536; // bytes held back before they go to the system

} // namespace

CStdioFile::CStdioFile() = default;

CStdioFile::CStdioFile(const char16_t* path, UINT flags)
{
    CFileException exception;
    if (!CStdioFile::Open(path, flags, &exception))
        CFileException::ThrowOsError(exception.m_lOsError, path);
}

CStdioFile::~CStdioFile()
{
    CStdioFile::Abort();
}

bool CStdioFile::Open(const char16_t* path, UINT flags, CFileException* error)
{
    DropAhead();
    m_Held.clear();
    m_IsText = (flags & typeText) != 0;
    return CFile::Open(path, flags & ~(typeText | typeBinary), error);
}

void CStdioFile::Close()
{
    DropAhead();
    try
    {
        WriteHeld();
    }
    catch (CFileException*)
    {
        CFile::Abort(); // the file is closed all the same
        throw;
    }
    CFile::Close();
}

void CStdioFile::Abort()
{
    try
    {
        if (IsOpen())
            WriteHeld();
    }
    catch (CFileException* exception)
    {
        exception->Delete();
    }
    m_Held.clear();
    DropAhead();
    CFile::Abort();
}

void CStdioFile::WriteHeld()
{
    if (m_Held.empty())
        return;
    // Emptied first: what failed once is not tried again behind the caller's back.
    const std::string held = std::exchange(m_Held, std::string());
    CFile::Write(held.data(), static_cast<UINT>(held.size()));
}

void CStdioFile::StandForWriting()
{
    const std::size_t unread = m_Ahead.GetUnread();
    if (unread > 0)
        CFile::Seek(-static_cast<std::int64_t>(unread), current);
    DropAhead();
}

void CStdioFile::DropAhead()
{
    m_Ahead.Drop();
    m_Rest.Empty();
    m_RestStart = 0;
}

UINT CStdioFile::Read(void* bytes, UINT count)
{
    WriteHeld();
    m_Rest.Empty();
    m_RestStart = 0;
    return static_cast<UINT>(m_Ahead.Read(*this, static_cast<char*>(bytes), count));
}

void CStdioFile::Write(const void* bytes, UINT count)
{
    StandForWriting();
    if (m_Held.size() + count > HELD_LIMIT)
        WriteHeld();
    if (count >= HELD_LIMIT)
        CFile::Write(bytes, count);
    else
        m_Held.append(static_cast<const char*>(bytes), count);
}

void CStdioFile::Flush()
{
    WriteHeld();
}

std::uint64_t CStdioFile::Seek(std::int64_t offset, UINT from)
{
    WriteHeld();
    m_Rest.Empty();
    m_RestStart = 0;
    const std::uint64_t here = GetPosition();
    if (from == begin)
    {
        if (m_Ahead.Move(offset - static_cast<std::int64_t>(here)))
            return static_cast<std::uint64_t>(offset);
    }
    else if (from == current)
    {
        if (m_Ahead.Move(offset))
            return here + static_cast<std::uint64_t>(offset);
        offset += static_cast<std::int64_t>(here);
        from = begin;
    }
    DropAhead();
    return CFile::Seek(offset, from);
}

std::uint64_t CStdioFile::GetPosition() const
{
    return CFile::GetPosition() + m_Held.size() - m_Ahead.GetUnread();
}

std::uint64_t CStdioFile::GetLength() const
{
    return std::max(CFile::GetLength(), CFile::GetPosition() + m_Held.size());
}

void CStdioFile::SetLength(std::uint64_t length)
{
    WriteHeld();
    DropAhead();
    CFile::SetLength(length);
}

bool CStdioFile::ReadRawLine(std::size_t unitSize, std::string_view& line, bool& ended)
{
    WriteHeld();
    return m_Ahead.ReadLine(*this, unitSize, line, ended);
}

bool CStdioFile::TakeRestOfLine(CString& line)
{
    if (m_RestStart >= m_Rest.GetLength())
        return false;
    line = m_Rest.Mid(m_RestStart);
    m_Rest.Empty();
    m_RestStart = 0;
    return true;
}

bool CStdioFile::ReadString(CString& line)
{
    if (TakeRestOfLine(line))
        return true;
    line.Empty();
    std::string_view bytes;
    bool ended = false;
    if (!ReadRawLine(1, bytes, ended))
        return false;
    if (m_IsText && ended && bytes.ends_with('\r'))
        bytes.remove_suffix(1);
    line = FromBytes(CP_ACP, bytes);
    return true;
}

char16_t* CStdioFile::ReadString(char16_t* line, UINT capacity)
{
    if (capacity == 0)
        return nullptr;
    if (m_RestStart >= m_Rest.GetLength())
    {
        CString whole;
        if (!ReadString(whole)) // of the derived class
            return nullptr;
        m_Rest = whole;
        m_RestStart = 0;
    }
    const std::u16string_view rest = m_Rest.View().substr(static_cast<std::size_t>(m_RestStart));
    const std::size_t count = std::min<std::size_t>(capacity - 1, rest.size());
    std::copy_n(rest.data(), count, line);
    line[count] = 0;
    m_RestStart += static_cast<int>(count);
    return line;
}

void CStdioFile::WriteString(const char16_t* text)
{
    const std::string bytes = ToBytes(CP_ACP, text);
    if (!m_IsText)
    {
        CStdioFile::Write(bytes.data(), static_cast<UINT>(bytes.size()));
        return;
    }
    std::string expanded;
    expanded.reserve(bytes.size() + 2);
    for (const char byte : bytes)
    {
        if (byte == '\n')
            expanded += '\r';
        expanded += byte;
    }
    CStdioFile::Write(expanded.data(), static_cast<UINT>(expanded.size()));
}

} // namespace utility
