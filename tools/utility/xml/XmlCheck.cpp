#include "utility/xml/XmlCheck.h"

#include "platform/base/Encoding.h"
#include "platform/system/file/NativePath.h"

#include "utility/xml/XmlTokens.h"

namespace utility
{

namespace
{

/// Walks through a text from token to token.
class CXmlWalk
{
public:
    explicit CXmlWalk(std::string_view text) : m_Tokens(text), m_Places(text) {}

    CXmlLook Look()
    {
        while (Take(m_Tokens.Next()))
        {
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

    /// False where the library's reader ends.
    bool Take(const CXmlToken& token)
    {
        switch (token.m_Kind)
        {
        case EXmlToken::End:
            return false;
        case EXmlToken::UnendedTag:
            return AddFault(token, u"this tag is not closed before the end of the file");
        case EXmlToken::UnendedComment:
            m_Look.m_HasComments = true;
            return AddFault(token, u"this comment is not closed before the end of the file");
        case EXmlToken::Comment:
            m_Look.m_HasComments = true;
            return true;
        case EXmlToken::Open:
            m_Places.GoTo(token.m_Offset);
            m_Open.push_back({NameOf(token), m_Places.GetLine(), m_Places.GetColumn()});
            ++m_Look.m_Elements;
            return true;
        case EXmlToken::Empty:
            ++m_Look.m_Elements;
            return true;
        case EXmlToken::Close:
            return CloseElement(token);
        case EXmlToken::Declaration:
        case EXmlToken::Text:
        case EXmlToken::LostText:
            break;
        }
        return true;
    }

    bool CloseElement(const CXmlToken& token)
    {
        if (m_Open.empty())
            return AddFault(token, u"this closes nothing, and what follows is not read");
        const CString name = NameOf(token);
        if (name != m_Open.back().m_Name)
            AddFault(token, u"</" + name + u"> closes <" + m_Open.back().m_Name + u">");
        m_Open.pop_back();
        return true;
    }

    static CString NameOf(const CXmlToken& tag)
    {
        return FromUtf8(tag.m_Text.substr(0, tag.m_Text.find_first_of(" \t")));
    }

    /// Always false.
    bool AddFault(const CXmlToken& token, const CString& reason)
    {
        m_Places.GoTo(token.m_Offset);
        m_Look.m_Faults.push_back({m_Places.GetLine(), m_Places.GetColumn(), reason});
        return false;
    }

    CXmlTokens m_Tokens;
    CXmlPlaces m_Places;
    std::vector<COpen> m_Open;
    CXmlLook m_Look;
};

} // namespace

CXmlLook LookThroughXml(const std::vector<CString>& lines)
{
    const std::string text = CXmlTokens::Join(lines);
    return CXmlWalk(text).Look();
}

CString DescribeXmlFault(const CString& path, const CXmlFault& fault)
{
    CString text;
    text.Format(u"%s:%d:%d: %s", NativePath(path), fault.m_Line, fault.m_Column, fault.m_Reason);
    return text;
}

} // namespace utility
