#include "utility/form/FormScanner.h"

#include "platform/system/file/File.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"

namespace utility
{

bool CFormScanner::Feed(const char* bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count && !m_Fault; ++i)
        FeedByte(static_cast<unsigned char>(bytes[i]));
    return !m_Fault;
}

bool CFormScanner::Finish()
{
    if (m_Fault)
        return false;
    if (m_Pending > 0)
        return Fail(m_Place, u"the file ends within a character");
    if (m_InQuote)
        return Fail(m_QuotePlace, u"this quote is not closed before the end of the file");
    if (!m_Open.empty())
        return Fail(m_Open.back(), u"this bracket is not closed before the end of the file");
    return true;
}

bool CFormScanner::Fail(const CPlace& place, const char16_t* reason)
{
    m_Fault = CFormFault{place.line, place.column, reason};
    return false;
}

bool CFormScanner::FeedByte(unsigned char byte)
{
    if (++m_LineBytes > LINE_LIMIT)
        return Fail(m_Place, u"the line is longer than 16 MB");
    return m_Pending > 0 ? ContinueCharacter(byte) : StartCharacter(byte);
}

// The bounds of a second byte leave out overlong forms, surrogates and what lies above U+10FFFF.
bool CFormScanner::StartCharacter(unsigned char byte)
{
    m_Lowest = 0x80;
    m_Highest = 0xBF;
    if (byte < 0x80)
        return TakeCharacter(byte);
    if (byte >= 0xC2 && byte <= 0xDF)
        m_Pending = 1;
    else if (byte >= 0xE0 && byte <= 0xEF)
        m_Pending = 2;
    else if (byte >= 0xF0 && byte <= 0xF4)
        m_Pending = 3;
    else
        return Fail(m_Place, u"this is not well-formed UTF-8");

    if (byte == 0xE0)
        m_Lowest = 0xA0;
    else if (byte == 0xED)
        m_Highest = 0x9F;
    else if (byte == 0xF0)
        m_Lowest = 0x90;
    else if (byte == 0xF4)
        m_Highest = 0x8F;
    m_Character = byte & (0x3F >> m_Pending);
    return true;
}

bool CFormScanner::ContinueCharacter(unsigned char byte)
{
    if (byte < m_Lowest || byte > m_Highest)
        return Fail(m_Place, u"this is not well-formed UTF-8");
    m_Lowest = 0x80;
    m_Highest = 0xBF;
    m_Character = m_Character << 6 | (byte & 0x3F);
    return --m_Pending > 0 || TakeCharacter(m_Character);
}

bool CFormScanner::TakeCharacter(char32_t character)
{
    const bool isMark = m_AtStart && character == 0xFEFF;
    m_AtStart = false;
    if (isMark)
        return true;
    if (character == 0)
        return Fail(m_Place, u"a NUL stands in the text");

    bool good = true;
    if (!m_InQuote)
        good = TakeOutside(character);
    else if (m_Escaped)
        m_Escaped = false;
    else if (character == U'\\')
        m_Escaped = true;
    else if (character == U'"')
        m_InQuote = false;
    if (good)
        Advance(character);
    return good;
}

bool CFormScanner::TakeOutside(char32_t character)
{
    const bool isSpace = character == U' ' || (character >= U'\t' && character <= U'\r');
    const bool isBracket = character == U'(' || character == U')';
    if (character == U'"' && !m_InToken)
    {
        m_InQuote = true;
        m_QuotePlace = m_Place;
        return true;
    }
    m_InToken = !isSpace && !isBracket;
    if (character == U'(')
        return OpenBracket();
    if (character != U')')
        return true;
    if (m_Open.empty())
        return Fail(m_Place, u"this bracket closes nothing");
    m_Open.pop_back();
    return true;
}

bool CFormScanner::OpenBracket()
{
    if (m_Open.size() == DEPTH_LIMIT)
        return Fail(m_Place, u"forms are nested deeper than 10,000");
    m_Open.push_back(m_Place);
    ++m_Forms;
    return true;
}

void CFormScanner::Advance(char32_t character)
{
    if (character != U'\n')
    {
        ++m_Place.column;
        return;
    }
    ++m_Place.line;
    m_Place.column = 1;
    m_LineBytes = 0;
    m_Escaped = false; // the reader forgets an escape at a line's end
}

bool ScanFormFile(const CString& path, CFormScanner& scanner)
{
    constexpr UINT PIECE = 1u << 16;
    const auto buffer = std::make_unique<char[]>(PIECE);
    try
    {
        CFile file(path, CFile::modeRead | CFile::shareDenyNone);
        while (const UINT count = file.Read(buffer.get(), PIECE))
            if (!scanner.Feed(buffer.get(), count))
                return false;
        return scanner.Finish();
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

CString DescribeFault(const CString& path, const CFormFault& fault)
{
    CString text;
    text.Format(u"%s:%I64d:%I64d: %s", NativePath(path), static_cast<std::int64_t>(fault.line),
                static_cast<std::int64_t>(fault.column), fault.reason);
    return text;
}

} // namespace utility
