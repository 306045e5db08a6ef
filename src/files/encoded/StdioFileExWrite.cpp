#include "files/encoded/StdioFileEx.h"
#include "files/encoded/TextEscapes.h"
#include "platform/base/Encoding.h"
#include "platform/base/UnitSearch.h"
#include "platform/base/Utf8.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace utility
{

namespace
{

constexpr std::size_t LINE_STEP = 4096;  // units that the line buffer grows by
constexpr std::size_t WRITE_STEP = 4096; // bytes that the write buffer grows by at least
constexpr std::size_t WRITE_CAPACITY = 4 * WRITE_STEP; // bytes that are held back at first
constexpr std::size_t SHORT_LINE = 4096; // units that are converted without a block of their own
constexpr std::size_t LONGEST_CHARACTER = 3; // bytes of UTF-8 for one unit

constexpr char UNICODE_MARK[] = "\xFF\xFE";
constexpr char UTF8_MARK[] = "\xEF\xBB\xBF";

/// The bytes for a line that surely fit; UTF-8 is spared the count.
std::size_t EncodeShortLine(UINT page, std::u16string_view line, char* bytes, std::size_t size)
{
    if (page == CP_UTF8 || (page == CP_ACP && GetACP() == CP_UTF8))
        return utf8::Encode(line, bytes);
    return static_cast<std::size_t>(WideCharToMultiByte(page, 0, line.data(),
                                                        static_cast<int>(line.size()), bytes,
                                                        static_cast<int>(size), nullptr, nullptr));
}

bool IsLineEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}

/// Whether one of four units is below 0x0E, as the line ends are.
bool MayHoldLineEnd(const char16_t* units)
{
    constexpr std::uint64_t EACH = 0x0001000100010001U;
    std::uint64_t block;
    std::memcpy(&block, units, sizeof block);
    return ((block - EACH * 0x0E) & ~block & EACH * 0x8000) != 0;
}

/// The first line end from there on, or the text's length. Four units a step.
std::size_t FindLineEnd(std::u16string_view text, std::size_t place)
{
    while (place < text.size())
    {
        if (text.size() - place >= 4 && !MayHoldLineEnd(text.data() + place))
            place += 4;
        else if (IsLineEnd(text[place]))
            return place;
        else
            ++place;
    }
    return place;
}

} // namespace

void CStdioFileEx::WriteInit()
{
    m_WriteBuffer.reset(new (std::nothrow) BYTE[WRITE_CAPACITY]);
    m_WriteCapacity = m_WriteBuffer ? WRITE_CAPACITY : 0;
    m_LineBuffer.reset(new (std::nothrow) char16_t[LINE_STEP]);
    m_LineCapacity = m_LineBuffer ? LINE_STEP : 0;
    if ((m_Flags & modeWriteUtf8) != 0)
        m_CodePage = CP_UTF8;
    // Created, emptied or found empty.
    m_AtStart = CStdioFile::GetLength() == 0;
    m_WriteUnicodeBOM = m_AtStart;
}

void CStdioFileEx::FreeBuffers()
{
    m_WriteBuffer.reset();
    m_WriteCapacity = 0;
    m_WriteUsed = 0;
    m_LineBuffer.reset();
    m_LineCapacity = 0;
}

void CStdioFileEx::WriteBOM()
{
    if (m_AtStart && m_WriteUnicodeBOM && GetPosition() == 0)
        WriteMark();
}

void CStdioFileEx::WriteMark()
{
    m_AtStart = false;
    m_WriteUnicodeBOM = false;
    if ((m_Flags & modeWriteUnicode) != 0)
        WriteToFile(UNICODE_MARK, sizeof UNICODE_MARK - 1);
    else if ((m_Flags & modeWriteUtf8) != 0)
        WriteToFile(UTF8_MARK, sizeof UTF8_MARK - 1);
}

void CStdioFileEx::WriteString(const char16_t* text)
{
    WriteBOM();
    m_AtStart = false;
    const std::u16string_view line = ExpandLineEnds(
        text != nullptr ? std::u16string_view(text, units::Length(text)) : std::u16string_view());
    if ((m_Flags & modeWriteUnicode) != 0)
        WriteUnicodeLine(line);
    else if ((m_Flags & modeAscii) != 0)
        WriteAsciiLine(line);
    else
        WriteMultiByteLine(line);
}

/// The text with CR LF for each CR, LF or CR LF; itself if it has none. Valid until the next call.
std::u16string_view CStdioFileEx::ExpandLineEnds(std::u16string_view text)
{
    std::size_t lineEnd = FindLineEnd(text, 0);
    if (lineEnd == text.size())
        return text;

    if (2 * text.size() > m_LineCapacity)
    {
        m_LineCapacity = (2 * text.size() + LINE_STEP - 1) / LINE_STEP * LINE_STEP;
        m_LineBuffer = std::make_unique<char16_t[]>(m_LineCapacity);
    }
    char16_t* out = m_LineBuffer.get();
    std::size_t start = 0;
    for (; lineEnd < text.size(); lineEnd = FindLineEnd(text, start))
    {
        out = std::copy_n(text.data() + start, lineEnd - start, out);
        *out++ = u'\r';
        *out++ = u'\n';
        start = lineEnd + (text.substr(lineEnd).starts_with(u"\r\n") ? 2 : 1);
    }
    out = std::copy(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), out);
    return std::u16string_view(m_LineBuffer.get(),
                               static_cast<std::size_t>(out - m_LineBuffer.get()));
}

void CStdioFileEx::WriteUnicodeLine(std::u16string_view line)
{
    WriteToFile(line.data(), line.size() * sizeof(char16_t));
}

void CStdioFileEx::WriteAsciiLine(std::u16string_view line)
{
    std::string bytes;
    bytes.reserve(line.size());
    for (const char16_t unit : line)
    {
        if (unit < 0x80)
            bytes += static_cast<char>(unit);
        else
            AppendEscape(bytes, unit, m_LeadString);
    }
    WriteToFile(bytes.data(), bytes.size());
}

void CStdioFileEx::WriteMultiByteLine(std::u16string_view line)
{
    const UINT page = (m_Flags & modeMultiByteUtf8) != 0 ? CP_UTF8 : GetCodePage();
    if (line.size() > SHORT_LINE)
    {
        const std::string bytes = ToBytes(page, line);
        m_WriteUnicodeBOM = m_WriteUnicodeBOM || bytes.size() > line.size();
        WriteToFile(bytes.data(), bytes.size());
        return;
    }
    char bytes[SHORT_LINE * LONGEST_CHARACTER];
    const std::size_t count = EncodeShortLine(page, line, bytes, sizeof bytes);
    m_WriteUnicodeBOM = m_WriteUnicodeBOM || count > line.size();
    WriteToFile(bytes, count);
}

void CStdioFileEx::Write(const void* bytes, UINT count)
{
    WriteToFile(bytes, count);
}

void CStdioFileEx::WriteToFile(const void* bytes, std::size_t count)
{
    if (count == 0)
        return;
    StandForWriting();
    if (!m_WriteBuffer)
    {
        CFile::Write(bytes, static_cast<UINT>(count));
        return;
    }
    if (count > m_WriteCapacity - m_WriteUsed)
        WriteHeldBytes();
    if (count > m_WriteCapacity && !GrowWriteBuffer(count))
    {
        CFile::Write(bytes, static_cast<UINT>(count));
        return;
    }
    std::memcpy(m_WriteBuffer.get() + m_WriteUsed, bytes, count);
    m_WriteUsed += count;
}

/// Called with nothing held.
bool CStdioFileEx::GrowWriteBuffer(std::size_t count)
{
    const std::size_t capacity = std::max(count, m_WriteCapacity + WRITE_STEP);
    std::unique_ptr<BYTE[]> buffer(new (std::nothrow) BYTE[capacity]);
    if (!buffer)
        return false;
    m_WriteBuffer = std::move(buffer);
    m_WriteCapacity = capacity;
    return true;
}

void CStdioFileEx::WriteHeldBytes()
{
    // Forgotten first: what failed once is not tried again behind the caller's back.
    const std::size_t used = std::exchange(m_WriteUsed, 0);
    if (used > 0)
        CFile::Write(m_WriteBuffer.get(), static_cast<UINT>(used));
}

} // namespace utility
