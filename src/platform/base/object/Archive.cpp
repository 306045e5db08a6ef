#include "platform/base/object/Archive.h"

#include "platform/base/object/ArchiveException.h"
#include "platform/system/file/File.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

namespace utility
{

namespace
{

// The escapes of the length forms: each wider form stands behind the largest value of the last.
constexpr BYTE WIDE_LENGTH = 0xFF;
constexpr WORD UNICODE_MARK = 0xFFFE;
constexpr WORD WIDER_LENGTH = 0xFFFF;
constexpr DWORD WIDEST_LENGTH = 0xFFFFFFFF;

constexpr std::size_t LEAST_BUFFER = 16; // room for any one number

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize)
    : m_File(file),
      m_Loading((mode & load) != 0),
      m_Buffer(std::max(LEAST_BUFFER, static_cast<std::size_t>(std::max(bufferSize, 0))))
{
}

CArchive::~CArchive()
{
    try
    {
        Close();
    }
    catch (CException* exception)
    {
        const CExceptionGuard guard(exception);
    }
}

void CArchive::Demand(bool loading) const
{
    if (!m_File)
        AfxThrowArchiveException(CArchiveException::genericException);
    if (m_Loading != loading)
        AfxThrowArchiveException(m_Loading ? CArchiveException::readOnly
                                           : CArchiveException::writeOnly);
}

template <typename T>
CArchive& CArchive::Put(T value)
{
    auto bits = static_cast<std::make_unsigned_t<T>>(value);
    BYTE bytes[sizeof(T)];
    for (BYTE& byte : bytes)
    {
        byte = static_cast<BYTE>(bits);
        bits = static_cast<decltype(bits)>(static_cast<std::uint64_t>(bits) >> 8);
    }
    Write(bytes, sizeof(T));
    return *this;
}

template <typename T>
CArchive& CArchive::Take(T& value)
{
    BYTE bytes[sizeof(T)];
    if (Read(bytes, sizeof(T)) != sizeof(T))
        AfxThrowArchiveException(CArchiveException::endOfFile);

    std::uint64_t bits = 0;
    for (std::size_t index = sizeof(T); index-- > 0;)
        bits = bits << 8 | bytes[index];
    value = static_cast<T>(bits);
    return *this;
}

template CArchive& CArchive::Put(std::int8_t);
template CArchive& CArchive::Put(BYTE);
template CArchive& CArchive::Put(std::int16_t);
template CArchive& CArchive::Put(WORD);
template CArchive& CArchive::Put(char16_t);
template CArchive& CArchive::Put(std::int32_t);
template CArchive& CArchive::Put(DWORD);
template CArchive& CArchive::Put(std::int64_t);
template CArchive& CArchive::Put(std::uint64_t);

template CArchive& CArchive::Take(std::int8_t&);
template CArchive& CArchive::Take(BYTE&);
template CArchive& CArchive::Take(std::int16_t&);
template CArchive& CArchive::Take(WORD&);
template CArchive& CArchive::Take(char16_t&);
template CArchive& CArchive::Take(std::int32_t&);
template CArchive& CArchive::Take(DWORD&);
template CArchive& CArchive::Take(std::int64_t&);
template CArchive& CArchive::Take(std::uint64_t&);

CArchive& CArchive::operator<<(double value)
{
    return Put(std::bit_cast<std::uint64_t>(value));
}

CArchive& CArchive::operator>>(double& value)
{
    std::uint64_t bits = 0;
    Take(bits);
    value = std::bit_cast<double>(bits);
    return *this;
}

void CArchive::Write(const void* bytes, UINT count)
{
    Demand(false);
    if (count > m_Buffer.size() - m_Next)
        Flush();
    if (count > m_Buffer.size())
    {
        m_File->Write(bytes, count);
        return;
    }
    if (count > 0)
        std::memcpy(m_Buffer.data() + m_Next, bytes, count);
    m_Next += count;
}

/// Reads ahead once all is taken; false at the end of the file.
bool CArchive::Fill()
{
    m_Next = 0;
    m_End = 0;
    m_End = m_File->Read(m_Buffer.data(), static_cast<UINT>(m_Buffer.size()));
    return m_End > 0;
}

UINT CArchive::Read(void* bytes, UINT count)
{
    Demand(true);
    auto* const target = static_cast<BYTE*>(bytes);
    UINT done = 0;
    while (done < count && (m_Next < m_End || Fill()))
    {
        const std::size_t piece = std::min<std::size_t>(count - done, m_End - m_Next);
        std::memcpy(target + done, m_Buffer.data() + m_Next, piece);
        m_Next += piece;
        done += static_cast<UINT>(piece);
    }
    return done;
}

/// False at the end of the file; half a unit there is no unit.
bool CArchive::TakeUnit(char16_t& unit)
{
    BYTE bytes[2];
    if (Read(bytes, 2) != 2)
        return false;
    unit = static_cast<char16_t>(bytes[0] | bytes[1] << 8);
    return true;
}

bool CArchive::ReadString(CString& text)
{
    CString line;
    char16_t unit = 0;
    bool any = false;
    while (TakeUnit(unit))
    {
        any = true;
        if (unit == u'\n')
            break;
        line += unit;
    }
    if (!any)
        return false;
    if (unit == u'\n' && line.GetLength() > 0 && line[line.GetLength() - 1] == u'\r')
        line.Delete(line.GetLength() - 1);
    text = line;
    return true;
}

char16_t* CArchive::ReadString(char16_t* buffer, UINT limit)
{
    UINT length = 0;
    char16_t unit = 0;
    while (length < limit && unit != u'\n' && TakeUnit(unit))
        buffer[length++] = unit;
    buffer[length] = 0;
    return length > 0 ? buffer : nullptr;
}

void CArchive::WriteString(const char16_t* text)
{
    Demand(false);
    for (; text && *text != 0; ++text)
        Put(*text);
}

void CArchive::Flush()
{
    if (!m_File)
        return;
    if (m_Loading)
    {
        if (m_Next < m_End)
            m_File->Seek(static_cast<std::int64_t>(m_Next) - static_cast<std::int64_t>(m_End),
                         CFile::current);
        m_Next = m_End = 0;
        return;
    }
    // Emptied first: bytes that the file refused are not written a second time by the destructor.
    const auto count = static_cast<UINT>(m_Next);
    m_Next = 0;
    if (count > 0)
        m_File->Write(m_Buffer.data(), count);
}

void CArchive::Close()
{
    Flush();
    m_File = nullptr;
}

void AfxWriteStringLength(CArchive& archive, std::uint64_t length, bool unicode)
{
    if (unicode)
        archive << WIDE_LENGTH << UNICODE_MARK;
    if (length < WIDE_LENGTH)
    {
        archive << static_cast<BYTE>(length);
        return;
    }
    archive << WIDE_LENGTH;
    if (length < UNICODE_MARK)
    {
        archive << static_cast<WORD>(length);
        return;
    }
    archive << WIDER_LENGTH;
    if (length < WIDEST_LENGTH)
    {
        archive << static_cast<DWORD>(length);
        return;
    }
    archive << WIDEST_LENGTH << length;
}

std::uint64_t AfxReadStringLength(CArchive& archive, int& unitSize)
{
    unitSize = 1;
    BYTE shortLength = 0;
    archive >> shortLength;
    if (shortLength < WIDE_LENGTH)
        return shortLength;

    WORD length = 0;
    archive >> length;
    if (length == UNICODE_MARK)
    {
        unitSize = 2;
        archive >> shortLength;
        if (shortLength < WIDE_LENGTH)
            return shortLength;
        archive >> length;
    }
    if (length < WIDER_LENGTH)
        return length;

    DWORD longLength = 0;
    archive >> longLength;
    if (longLength < WIDEST_LENGTH)
        return longLength;

    std::uint64_t longestLength = 0;
    archive >> longestLength;
    return longestLength;
}

} // namespace utility
