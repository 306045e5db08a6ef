#include "settings/xml/XMLScanner.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::u16string_view COMMENT_OPEN = u"<!--";
constexpr std::u16string_view COMMENT_CLOSE = u"-->";

bool IsBlank(std::u16string_view text)
{
    return std::all_of(text.begin(), text.end(), IsSpace);
}

/// Takes the marks off what stands between the brackets.
EXMLToken Classify(std::u16string_view& text)
{
    if (text.starts_with(u'/'))
    {
        text.remove_prefix(1);
        return EXMLToken::CloseTag;
    }
    if (text.ends_with(u'/'))
    {
        text.remove_suffix(1);
        return EXMLToken::EmptyTag;
    }
    if (text.starts_with(u'?') && text.ends_with(u'?'))
    {
        text = text.size() > 2 ? text.substr(1, text.size() - 2) : std::u16string_view();
        return EXMLToken::Declaration;
    }
    return EXMLToken::OpenTag;
}

} // namespace

EXMLToken CXMLScanner::ReadNext(std::u16string_view& text)
{
    std::size_t open = 0;
    std::size_t close = 0;
    if (!FindTag(open, close))
        return EXMLToken::End;

    const std::u16string_view rest = Rest();
    if (!IsBlank(rest.substr(0, open)))
    {
        text = rest.substr(0, open);
        m_Start += open;
        return EXMLToken::Text;
    }
    text = rest.substr(open + 1, close - open - 1);
    m_Start += close + 1;
    return Classify(text);
}

bool CXMLScanner::FindTag(std::size_t& open, std::size_t& close)
{
    open = FindOrAppend(u'<', 0);
    while (open != units::NOT_FOUND && Rest().substr(open).starts_with(COMMENT_OPEN))
    {
        if (!SkipComment(open))
            return false;
        open = FindOrAppend(u'<', 0);
    }
    if (open == units::NOT_FOUND)
        return false;
    close = FindOrAppend(u'>', open + 1);
    return close != units::NOT_FOUND;
}

/// A terminator that is cut by a line end is none.
bool CXMLScanner::SkipComment(std::size_t open)
{
    m_Start += open + COMMENT_OPEN.size();
    std::size_t end = units::Find(Rest(), COMMENT_CLOSE, 0);
    while (end == units::NOT_FOUND)
    {
        m_Start = m_Buffer.size();
        if (!AppendLine())
            return false;
        end = units::Find(Rest(), COMMENT_CLOSE, 0);
    }
    m_Start += end + COMMENT_CLOSE.size();
    while (m_Start < m_Buffer.size() && IsSpace(m_Buffer[m_Start]))
        ++m_Start;
    return true;
}

/// The place in the rest, which grows by lines until the unit is found.
std::size_t CXMLScanner::FindOrAppend(char16_t unit, std::size_t from)
{
    for (;;)
    {
        const std::size_t found = units::Find(Rest().substr(from), unit);
        if (found != units::NOT_FOUND)
            return from + found;
        from = Rest().size();
        if (!AppendLine())
            return units::NOT_FOUND;
    }
}

/// What is read makes room only here: then a tag is open at its end, so none is moved twice.
bool CXMLScanner::AppendLine()
{
    if (!m_Lines(m_Line))
        return false;
    m_Buffer.erase(0, m_Start);
    m_Start = 0;
    m_Buffer += m_Line.View();
    return true;
}

} // namespace utility
