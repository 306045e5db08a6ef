#include "utility/xml/XmlTokens.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t NONE = std::string_view::npos;
constexpr std::string_view COMMENT_OPEN = "<!--";
constexpr std::string_view COMMENT_CLOSE = "-->";

bool IsBlank(char byte)
{
    return IsSpace(static_cast<unsigned char>(byte));
}

std::string WithoutLineEnds(std::string_view text)
{
    std::string joined(text);
    std::erase(joined, '\n');
    return joined;
}

/// Takes the marks off what stands between the brackets.
CXmlToken TagOf(std::size_t offset, std::string_view between)
{
    CXmlToken token{EXmlToken::Open, offset, WithoutLineEnds(between), offset + between.size() + 2};
    std::string& text = token.m_Text;
    if (text.starts_with('/'))
    {
        token.m_Kind = EXmlToken::Close;
        text.erase(0, 1);
    }
    else if (text.ends_with('/'))
    {
        token.m_Kind = EXmlToken::Empty;
        text.pop_back();
    }
    else if (text.starts_with('?') && text.ends_with('?'))
        token.m_Kind = EXmlToken::Declaration;
    return token;
}

} // namespace

std::string CXmlTokens::Join(const std::vector<CString>& lines)
{
    std::string text;
    for (const CString& line : lines)
    {
        text += ToUtf8(line.View());
        text += '\n';
    }
    return text;
}

CXmlToken CXmlTokens::Next()
{
    const std::size_t open = m_Text.find('<', m_Place);
    if (open == NONE)
        return {EXmlToken::End, m_Text.size(), {}, m_Text.size()};
    const bool isComment = m_Text.substr(open).starts_with(COMMENT_OPEN);
    const std::size_t close = isComment ? NONE : m_Text.find('>', open + 1);
    if (!isComment && close == NONE)
        return {EXmlToken::UnendedTag, open, {}, m_Text.size()};

    const auto before = m_Text.substr(m_Place, open - m_Place);
    if (!std::all_of(before.begin(), before.end(), IsBlank))
        return TakeText(isComment ? EXmlToken::LostText : EXmlToken::Text, open);
    if (isComment)
        return TakeComment(open);
    m_Place = close + 1;
    return TagOf(open, m_Text.substr(open + 1, close - open - 1));
}

CXmlToken CXmlTokens::TakeText(EXmlToken kind, std::size_t end)
{
    const std::size_t start = m_Place;
    m_Place = end;
    const auto first = std::find_if_not(m_Text.begin() + static_cast<std::ptrdiff_t>(start),
                                        m_Text.end(), IsBlank);
    return {kind, static_cast<std::size_t>(first - m_Text.begin()),
            WithoutLineEnds(m_Text.substr(start, end - start)), end};
}

/// White space behind a comment goes with it, up to the end of the line.
CXmlToken CXmlTokens::TakeComment(std::size_t open)
{
    const std::size_t end = m_Text.find(COMMENT_CLOSE, open + COMMENT_OPEN.size());
    if (end == NONE)
        return {EXmlToken::UnendedComment, open, {}, m_Text.size()};
    m_Place = end + COMMENT_CLOSE.size();
    while (m_Place < m_Text.size() && m_Text[m_Place] != '\n' && IsBlank(m_Text[m_Place]))
        ++m_Place;
    return {EXmlToken::Comment, open, {}, end + COMMENT_CLOSE.size()};
}

void CXmlPlaces::GoTo(std::size_t offset)
{
    for (; m_Counted < offset; ++m_Counted)
    {
        const char byte = m_Text[m_Counted];
        if (byte == '\n')
        {
            ++m_Line;
            m_Column = 1;
        }
        else if ((byte & 0xC0) != 0x80) // the first byte of a character
            ++m_Column;
    }
}

} // namespace utility
