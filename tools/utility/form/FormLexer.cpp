#include "utility/form/FormLexer.h"

namespace utility
{

namespace
{

bool IsBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool EndsRun(char byte)
{
    return IsBlank(byte) || byte == '(' || byte == ')';
}

} // namespace

CRawFormToken CFormLexer::Next()
{
    while (m_Place < m_Text.size() && IsBlank(m_Text[m_Place]))
        ++m_Place;
    if (m_Place == m_Text.size())
        return {};

    const std::size_t start = m_Place;
    auto kind = CRawFormToken::EKind::Value;
    if (m_Text[start] == '"')
    {
        m_Place = QuoteEnd(start);
    }
    else if (EndsRun(m_Text[start]))
    {
        kind = m_Text[start] == '(' ? CRawFormToken::EKind::Open : CRawFormToken::EKind::Close;
        ++m_Place;
    }
    else
    {
        while (m_Place < m_Text.size() && !EndsRun(m_Text[m_Place]))
            ++m_Place;
    }
    return {kind, m_Text.substr(start, m_Place - start)};
}

// Behind the closing quote, or the text's end. An escape does not reach over a line's end.
std::size_t CFormLexer::QuoteEnd(std::size_t start) const
{
    std::size_t place = start + 1;
    while (place < m_Text.size() && m_Text[place] != '"')
    {
        const bool escape =
            m_Text[place] == '\\' && place + 1 < m_Text.size() && m_Text[place + 1] != '\n';
        place += escape ? 2 : 1;
    }
    return std::min(place + 1, m_Text.size());
}

} // namespace utility
