#include "XmlCheck.h"

#include <string>

namespace utility
{

namespace
{

constexpr std::size_t NONE = std::u16string::npos;

std::u16string Join(const std::vector<CString>& lines)
{
    std::u16string text;
    for (const CString& line : lines)
    {
        text += line.View();
        text += u'\n';
    }
    return text;
}

/// Walks through a text from tag to tag.
class CXmlWalk
{
public:
    explicit CXmlWalk(const std::vector<CString>& lines) : m_Text(Join(lines)) {}

    CXmlLook Look()
    {
        std::size_t place = m_Text.find(u'<');
        while (place != NONE)
        {
            const bool isComment = m_Text.compare(place, 4, u"<!--") == 0;
            place = isComment ? PassComment(place) : PassTag(place);
            place = place == NONE ? NONE : m_Text.find(u'<', place);
        }
        for (const COpen& open : m_Open)
            m_Look.m_Faults.push_back(
                {open.m_Line, open.m_Column,
                 u"<" + open.m_Name + u"> is not closed before the end of the file"});
        return std::move(m_Look);
    }

private:
    struct COpen
    {
        CString m_Name;
        int m_Line;
        int m_Column;
    };

    std::size_t PassComment(std::size_t place)
    {
        m_Look.m_HasComments = true;
        const std::size_t end = m_Text.find(u"-->", place + 4);
        if (end == NONE)
            AddFault(place, u"this comment is not closed before the end of the file");
        return end == NONE ? NONE : end + 3;
    }

    /// Gives where reading goes on, or NONE where the library's reader ends too.
    std::size_t PassTag(std::size_t place)
    {
        const std::size_t end = m_Text.find(u'>', place);
        if (end == NONE)
        {
            AddFault(place, u"this tag is not closed before the end of the file");
            return NONE;
        }
        const std::u16string_view tag(m_Text.data() + place + 1, end - place - 1);
        if (tag.starts_with(u'/'))
            return CloseElement(place, tag.substr(1)) ? end + 1 : NONE;
        if (tag.starts_with(u'?') && tag.ends_with(u'?'))
            return end + 1;
        ++m_Look.m_Elements;
        if (!tag.ends_with(u'/'))
        {
            CountTo(place);
            m_Open.push_back({NameOf(tag), m_Line, m_Column});
        }
        return end + 1;
    }

    bool CloseElement(std::size_t place, std::u16string_view tag)
    {
        if (m_Open.empty())
        {
            AddFault(place, u"this closes nothing, and what follows is not read");
            return false;
        }
        const CString name = NameOf(tag);
        if (name != m_Open.back().m_Name)
            AddFault(place, u"</" + name + u"> closes <" + m_Open.back().m_Name + u">");
        m_Open.pop_back();
        return true;
    }

    static CString NameOf(std::u16string_view tag)
    {
        return CString(tag.substr(0, tag.find_first_of(u" \t\n")));
    }

    void AddFault(std::size_t place, const CString& reason)
    {
        CountTo(place);
        m_Look.m_Faults.push_back({m_Line, m_Column, reason});
    }

    /// Places are asked for in their order, so each unit is counted once.
    void CountTo(std::size_t place)
    {
        for (; m_Counted < place; ++m_Counted)
        {
            const char16_t unit = m_Text[m_Counted];
            if (unit == u'\n')
            {
                ++m_Line;
                m_Column = 1;
            }
            else if (unit < 0xDC00 || unit > 0xDFFF) // the second half of a pair is no column
                ++m_Column;
        }
    }

    std::u16string m_Text;
    std::size_t m_Counted = 0;
    int m_Line = 1;
    int m_Column = 1;
    std::vector<COpen> m_Open;
    CXmlLook m_Look;
};

} // namespace

CXmlLook LookThroughXml(const std::vector<CString>& lines)
{
    return CXmlWalk(lines).Look();
}

} // namespace utility
