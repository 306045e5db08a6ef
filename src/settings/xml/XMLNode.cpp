#include "settings/xml/XMLNode.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/UnitSearch.h"

#include <utility>

namespace utility
{

namespace
{

std::u16string_view WithoutLeadingSpace(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Cuts the next name and value off an attribute text; false if no more stand there.
bool CutAttribute(std::u16string_view& text, CString& name, CString& value)
{
    text = WithoutLeadingSpace(text);
    const std::size_t equals = units::Find(text, u'=');
    const std::size_t open = units::Find(text, std::u16string_view(u"\""), equals);
    if (equals == units::NOT_FOUND || open == units::NOT_FOUND)
        return false;
    const std::size_t close = units::Find(text, std::u16string_view(u"\""), open + 1);
    if (close == units::NOT_FOUND)
        return false;

    name = text.substr(0, equals);
    value = text.substr(open + 1, close - open - 1);
    text.remove_prefix(close + 1);
    return true;
}

} // namespace

CXMLNode::~CXMLNode()
{
    // Each element is deleted without children of its own, however deep the tree.
    CXMLNode* node = m_FirstChild;
    while (node)
    {
        if (CXMLNode* below = std::exchange(node->m_FirstChild, nullptr))
        {
            node = below;
            continue;
        }
        CXMLNode* next = node->m_Next ? node->m_Next : node->m_Parent;
        delete node;
        node = next == this ? nullptr : next;
    }
}

const CString* CXMLNode::FindAttribute(const CString& name)
{
    if (!m_AttributeMap)
        MakeAttributeMap();
    CString folded = name;
    folded.MakeLower();
    CString found;
    if (!m_AttributeMap->Lookup(folded, found))
        return nullptr;
    return &(*m_AttributeMap)[folded];
}

void CXMLNode::MakeAttributeMap()
{
    m_AttributeMap = std::make_unique<CMapStringToString>(ATTRIBUTE_BLOCK);
    CString name;
    CString value;
    for (std::u16string_view rest = m_Attributes.View(); CutAttribute(rest, name, value);)
    {
        name.MakeLower();
        m_AttributeMap->SetAt(name, value);
    }
}

CXMLNode* CXMLNode::AddChild(std::unique_ptr<CXMLNode> child)
{
    CXMLNode* added = child.release();
    added->m_Parent = this;
    added->m_Previous = m_LastChild;
    (m_LastChild ? m_LastChild->m_Next : m_FirstChild) = added;
    m_LastChild = added;
    ++m_ChildCount;
    return added;
}

CXMLNode* CXMLNode::AddChild(const CString& name)
{
    auto child = std::make_unique<CXMLNode>();
    child->m_Name = name;
    return AddChild(std::move(child));
}

CXMLNode* CXMLNode::FindChild(std::u16string_view name) const
{
    CXMLNode* child = GetFirstChild();
    while (child && !EqualNoCase(child->m_Name.View(), name))
        child = child->GetNextSibling();
    return child;
}

std::unique_ptr<CXMLNode> CXMLNode::TakeFromParent()
{
    (m_Previous ? m_Previous->m_Next : m_Parent->m_FirstChild) = m_Next;
    (m_Next ? m_Next->m_Previous : m_Parent->m_LastChild) = m_Previous;
    --m_Parent->m_ChildCount;
    m_Parent = nullptr;
    m_Previous = nullptr;
    m_Next = nullptr;
    return std::unique_ptr<CXMLNode>(this);
}

CXMLNode* CXMLNode::GetNextBelow(const CXMLNode& top) const
{
    if (HasChildren())
        return GetFirstChild();
    for (const CXMLNode* node = this; node != &top; node = node->m_Parent)
    {
        if (CXMLNode* next = node->GetNextSibling())
            return next;
    }
    return nullptr;
}

void CXMLNode::CopyTextsTo(CXMLNode& other) const
{
    other.m_Name = m_Name;
    other.m_Value = m_Value;
    other.m_Attributes = m_Attributes;
}

std::unique_ptr<CXMLNode> CXMLNode::Clone() const
{
    auto clone = std::make_unique<CXMLNode>();
    CopyTextsTo(*clone);
    const CXMLNode* last = this;
    CXMLNode* lastCopy = clone.get();
    for (const CXMLNode* node = GetNextBelow(*this); node; node = node->GetNextBelow(*this))
    {
        for (; last != node->m_Parent; last = last->m_Parent)
            lastCopy = lastCopy->m_Parent;
        lastCopy = lastCopy->AddChild(node->m_Name);
        node->CopyTextsTo(*lastCopy);
        last = node;
    }
    return clone;
}

} // namespace utility
