#include "settings/xml/XMLReader.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/UnitSearch.h"
#include "settings/xml/XMLCoding.h"
#include "settings/xml/XMLNode.h"

namespace utility
{

namespace
{

/// Where the first attribute's name begins; 0 if the whole tag is the element's name.
///
///     a b="1"    2
///     a b = "1"  4    white space right before "=": the attribute's name is lost
///     a="1"      0
std::size_t FindAttributes(std::u16string_view tag)
{
    std::size_t start = units::Find(tag, u'=');
    if (start == units::NOT_FOUND)
        return 0;
    while (start > 0 && !IsSpace(tag[start - 1]))
        --start;
    return start;
}

} // namespace

bool CXMLReader::Read(const CXMLLines& lines, CXMLNode& root)
{
    CXMLScanner scanner(lines);
    CXMLNode* node = &root;
    std::u16string_view text;
    for (;;)
    {
        switch (scanner.ReadNext(text))
        {
        case EXMLToken::OpenTag:
            node = AddElement(*node, text);
            break;
        case EXMLToken::EmptyTag:
            AddElement(*node, text);
            break;
        case EXMLToken::Text:
            node->SetValue(DecodeXML(m_Encodings, text));
            break;
        case EXMLToken::CloseTag:
            if (node == &root)
                return true;
            node = node->GetParent();
            break;
        case EXMLToken::Declaration:
            break;
        case EXMLToken::End:
            return node == &root;
        }
    }
}

CXMLNode* CXMLReader::AddElement(CXMLNode& parent, std::u16string_view tag)
{
    const std::size_t attributes = FindAttributes(tag);
    if (attributes == 0)
        return parent.AddChild(SharedName(tag));
    CXMLNode* element = parent.AddChild(SharedName(tag.substr(0, attributes - 1)));
    element->SetAttributes(CString(tag.substr(attributes)));
    return element;
}

CString CXMLReader::SharedName(std::u16string_view name)
{
    if (name.empty())
        return CString();
    const std::size_t place = (name.size() * 31 + name.front() * 7 + name.back()) % m_Names.size();
    if (m_Names[place].View() != name)
        m_Names[place] = CString(name);
    return m_Names[place];
}

} // namespace utility
