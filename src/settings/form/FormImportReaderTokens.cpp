#include "files/encoded/AnsiText.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/UnitSearch.h"
#include "settings/form/FormImportReader.h"
#include "settings/form/FormQuoting.h"

namespace utility
{

namespace
{

/// Over blanks, four a step: nearly a third of a deep file is indentation.
std::size_t SkipIndent(std::u16string_view line, std::size_t index)
{
    constexpr std::u16string_view INDENT = u"    ";
    while (line.size() - index >= INDENT.size() &&
           units::Equal(line.data() + index, INDENT.data(), INDENT.size()))
        index += INDENT.size();
    return index;
}

} // namespace

// Lines

void CFormImportReader::FetchLine()
{
    ++m_LineNumber;
    m_Peeked = false;
    m_Cursor = 0;
    m_Measured = 0;
    m_MeasuredBytes = 0;
    m_LinePosition = GetPosition();
    if (!ReadString(m_Line))
    {
        m_Line.Empty();
        m_EndOfFile = true;
        return;
    }
    if (m_LinePosition == 0)
        m_LinePosition = GetMarkLength();
    if (m_IsUTF8)
        UTF8ToAnsi(m_Line);
}

void CFormImportReader::NextLine()
{
    do
        FetchLine();
    while (m_Comment != 0 && !m_InQuote && !m_EndOfFile && IsComment());
}

bool CFormImportReader::IsComment() const
{
    int index = 0;
    while (index < m_Line.GetLength() && IsSpace(m_Line[index]))
        ++index;
    return index < m_Line.GetLength() && m_Line[index] == m_Comment;
}

// Byte position of a unit of the line. Asked in rising order along a line, so each unit is measured
// once.
std::uint64_t CFormImportReader::PositionOf(int index)
{
    if (index < m_Measured)
    {
        m_Measured = 0;
        m_MeasuredBytes = 0;
    }
    const auto piece = m_Line.View().substr(m_Measured, index - m_Measured);
    m_MeasuredBytes += GetEncodedLength(piece);
    m_Measured = index;
    return m_LinePosition + m_MeasuredBytes;
}

// Tokens

void CFormImportReader::LearnClasses()
{
    for (char16_t unit = 0; unit < 128; ++unit)
        m_Classes[unit] = static_cast<BYTE>((IsSpace(unit) ? CLASS_SPACE : 0) | AskClassOf(unit));
    m_ClassesKnown = true;
}

BYTE CFormImportReader::AskClassOf(char16_t unit)
{
    return static_cast<BYTE>((IsFormStart(unit) ? CLASS_START : 0) |
                             (IsFormEnd(unit) ? CLASS_END : 0));
}

bool CFormImportReader::SkipToToken()
{
    if (!m_ClassesKnown)
        LearnClasses();
    for (;;)
    {
        const std::u16string_view line = m_Line.View();
        auto index = SkipIndent(line, static_cast<std::size_t>(m_Cursor));
        while (index < line.size() && ClassOf(line[index]) == CLASS_SPACE)
            ++index;
        m_Cursor = static_cast<int>(index);
        if (index < line.size())
            return true;
        NextLine();
        if (m_EndOfFile)
            return false;
    }
}

// The next token, unescaped; false at the end of the file.
bool CFormImportReader::NextToken(CFormToken& token)
{
    if (m_Peeked && !m_EndOfFile)
    {
        m_LastWasQuoted = false;
        return TakePeeked(token), true;
    }
    return SkipToNextToken() && (ScanToken(token), true);
}

// To the token behind the last one; false at the end of the file.
bool CFormImportReader::SkipToNextToken()
{
    m_LastWasQuoted = false;
    return !m_EndOfFile && SkipToToken();
}

void CFormImportReader::ScanToken(CFormToken& token)
{
    if (m_Line.View()[static_cast<std::size_t>(m_Cursor)] == m_Quote)
        ScanQuoted(token);
    else
        ScanPlain(token);
    m_LastWasQuoted = token.quoted;
}

// Whether the token under the cursor is a bracket, which then stays unread.
bool CFormImportReader::StopsAtBracket()
{
    const char16_t unit = m_Line.View()[static_cast<std::size_t>(m_Cursor)];
    const BYTE kind = unit == m_Quote ? 0 : ClassOf(unit);
    if (kind & CLASS_START)
        m_FormPosition = PositionOf(m_Cursor);
    return (kind & (CLASS_START | CLASS_END)) != 0;
}

void CFormImportReader::TakePeeked(CFormToken& token)
{
    m_Peeked = false;
    m_Joined = m_PeekedToken;
    token = {m_Joined.View(), false};
}

// A bracket is a token of its own; anything else runs up to a blank or a bracket.
void CFormImportReader::ScanPlain(CFormToken& token)
{
    const std::u16string_view line = m_Line.View();
    const auto first = static_cast<std::size_t>(m_Cursor);
    auto last = first + 1;
    const BYTE kind = ClassOf(line[first]);
    if (kind & CLASS_START)
        m_FormPosition = PositionOf(m_Cursor);
    if (kind == 0)
        while (last < line.size() && ClassOf(line[last]) == 0)
            ++last;
    m_Cursor = static_cast<int>(last);
    token = {line.substr(first, last - first), false};
}

void CFormImportReader::ScanQuoted(CFormToken& token)
{
    ++m_Cursor;
    m_InQuote = true;
    bool escaped = false;
    const int quoteEnd = FindQuoteEnd(m_Cursor, escaped);
    const std::u16string_view piece = m_Line.View().substr(m_Cursor, quoteEnd - m_Cursor);
    const bool ends = quoteEnd < m_Line.GetLength();
    if (ends)
        m_Cursor = quoteEnd + 1;
    token = {piece, true};
    if (!ends || escaped)
    {
        m_Joined.Empty();
        JoinPiece(piece, escaped);
        if (!ends)
            JoinLines();
        token.text = m_Joined.View();
    }
    m_InQuote = false;
}

// The rest of a quoted token that goes on behind its line's end.
void CFormImportReader::JoinLines()
{
    for (;;)
    {
        NextLine();
        if (m_EndOfFile)
            return;
        if (!m_Joined.IsEmpty() && m_Joined[m_Joined.GetLength() - 1] == u'\r')
            m_Joined.Delete(m_Joined.GetLength() - 1);
        if (m_IncludeReturns)
            m_Joined += u'\n';
        bool escaped = false;
        const int quoteEnd = FindQuoteEnd(0, escaped);
        JoinPiece(m_Line.View().substr(0, quoteEnd), escaped);
        if (quoteEnd < m_Line.GetLength())
        {
            m_Cursor = quoteEnd + 1;
            return;
        }
    }
}

// One by one, since an escape does not reach over a line's end.
void CFormImportReader::JoinPiece(std::u16string_view piece, bool escaped)
{
    if (escaped)
        UnescapeFormText(piece, m_Quote, m_EscapeUnit, m_Joined);
    else
        m_Joined += piece;
}

// The closing quote at or behind the index, or the line's end.
int CFormImportReader::FindQuoteEnd(int index, bool& escaped) const
{
    const std::u16string_view line = m_Line.View();
    auto place = static_cast<std::size_t>(index);
    while (place < line.size() && line[place] != m_Quote)
    {
        const bool escape = m_EscapeEnabled && line[place] == m_EscapeUnit;
        escaped |= escape;
        place += escape ? 2 : 1;
    }
    return static_cast<int>(std::min(place, line.size()));
}

void CFormImportReader::UngetFormStart()
{
    for (int index = m_Cursor - 1; index >= 0; --index)
        if (IsFormStart(m_Line[index]))
            return void(m_Cursor = index);
}

void CFormImportReader::UngetFormEnd()
{
    for (int index = m_Cursor - 1; index >= 0; --index)
        if (IsFormEnd(m_Line[index]))
            return void(m_Cursor = index);
}

} // namespace utility
