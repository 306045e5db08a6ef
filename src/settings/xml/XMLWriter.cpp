#include "settings/xml/XMLWriter.h"

#include "settings/xml/XMLCoding.h"
#include "settings/xml/XMLNode.h"

namespace utility
{

namespace
{

constexpr int INDENT = 4;      // blanks a level
constexpr int FLAT_LEVEL = -2; // and below: no level follows

int LevelBelow(int level)
{
    return level <= FLAT_LEVEL ? level : level + 1;
}

void AppendIndent(std::u16string& text, int level)
{
    if (level > 0)
        text.append(static_cast<std::size_t>(level) * INDENT, u' ');
}

bool ClosesItself(const CXMLNode& node)
{
    return !node.HasChildren() && node.GetValue().IsEmpty();
}

} // namespace

CXMLWriter::CXMLWriter(const CXMLNode& top, int level, int encodings)
    : m_Top(top),
      m_Node(&top),
      m_Level(level),
      m_Encodings(encodings)
{
}

bool CXMLWriter::AppendLine(std::u16string& text)
{
    const std::size_t length = text.size();
    while (m_Node && text.size() == length)
    {
        if (!m_Node->GetName().IsEmpty())
            m_IsClosing ? Close(text) : Open(text);
        MoveOn();
    }
    return text.size() != length;
}

void CXMLWriter::Open(std::u16string& text)
{
    AppendIndent(text, m_Level);
    text += u'<';
    text += m_Node->GetName().View();
    if (!m_Node->GetAttributes().IsEmpty())
    {
        text += u' ';
        const bool isCoded = (m_Encodings & XML_ENCODING_ATTRIBUTES) != 0;
        AppendEncodedXML(text, isCoded ? m_Encodings : 0, m_Node->GetAttributes());
    }
    if (ClosesItself(*m_Node))
        text += u"/>\n";
    else if (m_Node->HasChildren())
        text += u">\n";
    else
    {
        text += u'>';
        Close(text);
    }
}

void CXMLWriter::Close(std::u16string& text)
{
    AppendEncodedXML(text, m_Encodings & ~XML_ENCODING_ATTRIBUTES, m_Node->GetValue());
    if (m_Node->HasChildren())
        AppendIndent(text, m_Level);
    text += u"</";
    text += m_Node->GetName().View();
    text += u">\n";
}

/// To the first child, or to the next line of this element's neighbours and parents.
void CXMLWriter::MoveOn()
{
    if (!m_IsClosing && m_Node->HasChildren())
    {
        m_Node = m_Node->GetFirstChild();
        m_Level = LevelBelow(m_Level);
        return;
    }
    m_IsClosing = false;
    if (m_Node == &m_Top)
    {
        m_Node = nullptr;
        return;
    }
    if (const CXMLNode* next = m_Node->GetNextSibling())
    {
        m_Node = next;
        return;
    }
    m_Node = m_Node->GetParent();
    m_Level = m_Level <= FLAT_LEVEL ? m_Level : m_Level - 1;
    m_IsClosing = true;
}

} // namespace utility
