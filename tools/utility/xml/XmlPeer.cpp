#include "utility/xml/XmlPeer.h"

#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "utility/xml/XmlGeneral.h"
#include "utility/xml/XmlTokens.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int NAMED_ENTITIES = 2;

struct CDifference
{
    std::size_t m_Offset = 0;
    CString m_Reason;
};

CString WithoutLineEnds(std::string_view text)
{
    std::string joined(text);
    std::erase(joined, '\n');
    return FromUtf8(joined);
}

/// An element's difference; empty if there is none. The library itself takes the tag apart.
CString CompareElement(const CXmlToken& own, const CXmlFinding& general)
{
    CXMLSettings settings;
    CStringArray lines;
    lines.Add(FromUtf8("<" + own.m_Text + "/>"));
    settings.LoadXML(&lines);
    void* const element = settings.GetChildByHandle(settings.FindElementHandle(CString()), 0);
    const CString& name = settings.GetElementNameByHandle(element);
    const CString generalName = FromUtf8(general.m_Text);
    if (name != generalName)
        return u"this element is called \"" + name + u"\", not \"" + generalName + u"\"";
    for (const auto& [attribute, value] : general.m_Attributes)
    {
        const CString& read = settings.GetAttributeValueByHandle(element, FromUtf8(attribute));
        if (read != FromUtf8(value))
            return u"attribute \"" + FromUtf8(attribute) + u"\" reads as \"" + read +
                   u"\", not \"" + FromUtf8(value) + u"\"";
    }
    return CString();
}

/// A text's difference; `own` is null where the library's reader has none there.
CString CompareText(const CXmlToken* own, const CXmlFinding& general)
{
    if (general.m_Kind == EXmlFinding::LeafBlank)
        return u"white space alone is no value";
    if (!own)
        return u"this text is not read";
    if (own->m_Kind == EXmlToken::LostText)
        return u"this text is lost to the comment behind it";
    if (general.m_IsReplaced)
        return u"this text is replaced by a later one of the same element";
    const CString read = CXMLSettings::DecodeString(NAMED_ENTITIES, FromUtf8(own->m_Text));
    if (read == FromUtf8(general.m_Text))
        return CString();
    return read == WithoutLineEnds(general.m_Text) ? u"the line ends of this text are dropped"
                                                   : u"this text reads as \"" + read + u"\"";
}

/// The two readings beside each other, by the offsets of what they found.
class CXmlComparison
{
public:
    explicit CXmlComparison(std::string_view text)
        : m_Text(text),
          m_General(ReadByGeneralReader(text))
    {
        CXmlTokens tokens(text);
        for (CXmlToken token = tokens.Next(); token.m_Kind != EXmlToken::End; token = tokens.Next())
        {
            const bool isLast =
                token.m_Kind == EXmlToken::UnendedTag || token.m_Kind == EXmlToken::UnendedComment;
            m_Own.push_back(std::move(token));
            if (isLast)
                break;
        }
    }

    std::vector<CXmlFault> Compare()
    {
        CompareEncoding();
        std::size_t own = 0;
        for (const CXmlFinding& finding : m_General.m_List)
        {
            for (; own < m_Own.size() && m_Own[own].m_Offset < finding.m_Offset; ++own)
                TakeOwnAlone(m_Own[own]);
            const bool meets = own < m_Own.size() && m_Own[own].m_Offset == finding.m_Offset;
            TakeFinding(finding, meets ? &m_Own[own] : nullptr);
            own += meets ? 1 : 0;
        }
        for (; own < m_Own.size(); ++own)
            TakeOwnAlone(m_Own[own]);
        if (!m_General.m_Refusal.empty())
            Add(m_General.m_End,
                u"a general reader refuses this: " + FromUtf8(m_General.m_Refusal));
        return Located();
    }

private:
    void Add(std::size_t offset, const CString& reason)
    {
        if (!reason.IsEmpty())
            m_Differences.push_back({offset, reason});
    }

    void CompareEncoding()
    {
        constexpr std::string_view UTF8_NAMES[] = {"UTF-8", "utf-8", "UTF8", "utf8"};
        const bool isUtf8 = std::find(std::begin(UTF8_NAMES), std::end(UTF8_NAMES),
                                      m_General.m_Encoding) != std::end(UTF8_NAMES);
        const bool isAscii =
            std::all_of(m_Text.begin(), m_Text.end(), [](char byte) { return (byte & 0x80) == 0; });
        if (!m_General.m_Encoding.empty() && !isUtf8 && !isAscii)
            Add(0, u"the file declares " + FromUtf8(m_General.m_Encoding) +
                       u", which is not looked at");
    }

    void TakeFinding(const CXmlFinding& finding, const CXmlToken* own)
    {
        const bool isOwnElement =
            own && (own->m_Kind == EXmlToken::Open || own->m_Kind == EXmlToken::Empty);
        switch (finding.m_Kind)
        {
        case EXmlFinding::Element:
            Add(finding.m_Offset,
                isOwnElement ? CompareElement(*own, finding) : u"this element is not read");
            break;
        case EXmlFinding::Text:
        case EXmlFinding::LeafBlank:
            Add(finding.m_Offset, CompareText(own, finding));
            break;
        case EXmlFinding::Instruction:
            if (isOwnElement)
                Add(finding.m_Offset, u"this instruction is read as an element");
            break;
        case EXmlFinding::DocumentType:
            Add(finding.m_Offset, u"this document type is read as an element");
            break;
        case EXmlFinding::RawText:
            Add(finding.m_Offset, u"this CDATA section is read as an element");
            break;
        case EXmlFinding::Close:
        case EXmlFinding::Comment:
            break;
        }
    }

    /// What a general reader finds nothing at, unless it ended within or before it.
    void TakeOwnAlone(const CXmlToken& own)
    {
        if (own.m_End > m_General.m_End)
            return;
        if (own.m_Kind == EXmlToken::Open || own.m_Kind == EXmlToken::Empty)
            Add(own.m_Offset, u"this is read as an element");
        else if (own.m_Kind == EXmlToken::Close)
            Add(own.m_Offset, u"this is read as a close tag");
    }

    std::vector<CXmlFault> Located() const
    {
        std::vector<CXmlFault> faults;
        CXmlPlaces places(m_Text);
        for (const CDifference& difference : m_Differences)
        {
            places.GoTo(difference.m_Offset);
            faults.push_back({places.GetLine(), places.GetColumn(), difference.m_Reason});
        }
        return faults;
    }

    std::string_view m_Text;
    CXmlFindings m_General;
    std::vector<CXmlToken> m_Own;
    std::vector<CDifference> m_Differences;
};

} // namespace

std::vector<CXmlFault> CompareWithGeneralReader(const std::vector<CString>& lines)
{
    const std::string text = CXmlTokens::Join(lines);
    return CXmlComparison(text).Compare();
}

} // namespace utility
