#include "files/encoded/StdioFileEx.h"
#include "files/encoded/TextEscapes.h"
#include "platform/base/Encoding.h"
#include "platform/base/Utf8.h"

#include <cstring>

namespace utility
{

namespace
{

constexpr unsigned char UNICODE_MARK[] = {0xFF, 0xFE};
constexpr unsigned char UTF8_MARK[] = {0xEF, 0xBB, 0xBF};

} // namespace

bool CStdioFileEx::IsFileUnicode(const CString& path)
{
    CFile file;
    unsigned char start[sizeof UNICODE_MARK] = {};
    return file.Open(path, modeRead | shareDenyNone) &&
           file.Read(start, sizeof start) == sizeof start &&
           std::memcmp(start, UNICODE_MARK, sizeof start) == 0;
}

void CStdioFileEx::ReadInit()
{
    unsigned char start[sizeof UNICODE_MARK] = {};
    Read(start, sizeof start);
    if (std::memcmp(start, UNICODE_MARK, sizeof start) == 0)
        m_IsUnicode = true;
    else if (!m_IsUnicode && (start[0] == UTF8_MARK[0] || (m_Flags & modeWriteUtf8) != 0))
        m_CodePage = CP_UTF8;
    Seek(0, begin);
    m_AtStart = true;
}

/// A file asked for as UTF-16 loses its first unit even if that is no mark: kept.
void CStdioFileEx::StepOverMark()
{
    unsigned char start[sizeof UTF8_MARK] = {};
    if (m_IsUnicode)
        Read(start, sizeof UNICODE_MARK);
    else if (m_CodePage == static_cast<int>(CP_UTF8))
    {
        Read(start, sizeof start);
        if (std::memcmp(start, UTF8_MARK, sizeof start) != 0)
            Seek(0, begin);
    }
}

void CStdioFileEx::DecodeUnicode(std::string_view bytes, CString& line) const
{
    const std::size_t length = bytes.size() / sizeof(char16_t); // an odd last byte is dropped
    std::memcpy(line.GetBufferSetLength(static_cast<int>(length)), bytes.data(),
                length * sizeof(char16_t));
    if (length > 0 && line[static_cast<int>(length) - 1] == u'\r')
        line.ReleaseBuffer(static_cast<int>(length) - 1);
}

void CStdioFileEx::DecodeMultiByte(std::string_view bytes, CString& line) const
{
    if (bytes.ends_with('\r'))
        bytes.remove_suffix(1);
    // No page makes more units than it takes bytes, so the text's own buffer will do, mostly the
    // one it has.
    const int size = static_cast<int>(bytes.size());
    char16_t* buffer = line.GetBufferSetLength(size);
    // UTF-8 is spared the count.
    line.ReleaseBuffer(
        DecodesUtf8() ? static_cast<int>(utf8::Decode(bytes, buffer))
                      : MultiByteToWideChar(GetCodePage(), 0, bytes.data(), size, buffer, size));
}

bool CStdioFileEx::ReadString(CString& line)
{
    WriteHeldBytes();
    if (TakeRestOfLine(line))
        return true;
    if (m_AtStart && GetPosition() == 0)
    {
        StepOverMark();
        m_MarkLength = GetPosition();
    }
    m_AtStart = false;

    std::string_view bytes;
    bool ended = false;
    const std::size_t unitSize = m_IsUnicode ? sizeof(char16_t) : 1;
    if (!ReadRawLine(unitSize, bytes, ended) || (!ended && bytes.size() < unitSize))
    {
        line.Empty();
        return false;
    }
    if (m_IsUnicode)
        DecodeUnicode(bytes, line);
    else
        DecodeMultiByte(bytes, line);
    if ((m_Flags & modeRtf) != 0)
        UndoEscapes(line, m_LeadString);
    return true;
}

std::uint64_t CStdioFileEx::GetEncodedLength(std::u16string_view text) const
{
    if (m_IsUnicode)
        return text.size() * sizeof(char16_t);
    const bool ascii =
        std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 128; });
    return ascii ? text.size() : ToBytes(GetCodePage(), text).size();
}

char16_t* CStdioFileEx::ReadString(char16_t* line, UINT capacity)
{
    return CStdioFile::ReadString(line, capacity); // by way of the form above
}

} // namespace utility
