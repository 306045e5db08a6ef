#include "platform/base/CaseFold.h"
#include "settings/xml/XMLPath.h"
#include "settings/xml/XMLSettings.h"
#include "settings/xml/XMLTree.h"

namespace utility
{

namespace
{

const CString& EmptyText()
{
    static const CString empty;
    return empty;
}

bool HasName(const CXMLNode& element, std::u16string_view name)
{
    return EqualNoCase(element.GetName().View(), name);
}

bool HasAttribute(CXMLNode& element, const CString& attribute, std::u16string_view value)
{
    const CString* found = element.FindAttribute(attribute);
    return found && EqualNoCase(found->View(), value);
}

bool HasChildWithValue(const CXMLNode& element, const CString& name, const CString& value)
{
    for (const CXMLNode* child = element.GetFirstChild(); child; child = child->GetNextSibling())
    {
        if (HasName(*child, name.View()) && EqualNoCase(child->GetValue().View(), value.View()))
            return true;
    }
    return false;
}

/// The first element at a path of plain names that passes a test.
CXMLNode* FindTested(CXMLNode& start, const CString& path,
                     const std::function<bool(CXMLNode&)>& test)
{
    const auto names = SplitXMLPath(path.View());
    if (names.empty())
        return test(start) ? &start : nullptr;
    return FindXMLChain(start, names.size(),
                        [&](CXMLNode& element, std::size_t place) {
                            return HasName(element, names[place]) &&
                                   (place + 1 < names.size() || test(element));
                        });
}

/// A part of a path with tests: "name" or "name attribute=value".
struct CPredicate
{
    explicit CPredicate(std::u16string_view part) : m_Name(part)
    {
        const std::size_t equals = part.find(u'=');
        const std::size_t blank = part.substr(0, equals).rfind(u' ');
        if (equals == std::u16string_view::npos || blank == std::u16string_view::npos)
            return;
        m_Name = part.substr(0, blank);
        m_Attribute = part.substr(blank + 1, equals - blank - 1);
        m_Value = part.substr(equals + 1);
        m_HasTest = true;
    }

    bool Passes(CXMLNode& element) const
    {
        return HasName(element, m_Name) &&
               (!m_HasTest || HasAttribute(element, m_Attribute, m_Value));
    }

    std::u16string_view m_Name;
    CString m_Attribute;
    std::u16string_view m_Value;
    bool m_HasTest = false;
};

} // namespace

CXMLNode* CXMLSettings::FindNode(void* handle) const
{
    return m_Tree ? m_Tree->FindNode(handle) : nullptr;
}

CXMLNode* CXMLSettings::FindStart(void* start)
{
    return start ? FindNode(start) : GetRoot();
}

void* CXMLSettings::FindElementHandle(const CString& path, void* start)
{
    CXMLNode* node = FindStart(start);
    return node ? m_Tree->GetHandle(FindXMLPath(*node, path)) : nullptr;
}

void* CXMLSettings::FindElementHandleWithAttribute(const CString& path, const CString& attribute,
                                                   const CString& value, void* start)
{
    CXMLNode* node = FindStart(start);
    if (!node)
        return nullptr;
    const auto test = [&](CXMLNode& element)
    {
        return HasAttribute(element, attribute, value.View());
    };
    return m_Tree->GetHandle(FindTested(*node, path, test));
}

void* CXMLSettings::FindElementHandleWithAttributes(const CString& predicatePath, void* start)
{
    CXMLNode* node = FindStart(start);
    if (!node)
        return nullptr;
    std::vector<CPredicate> predicates;
    for (const std::u16string_view part : SplitXMLPath(predicatePath.View()))
        predicates.emplace_back(part);
    return m_Tree->GetHandle(FindXMLChain(*node, predicates.size(),
                                          [&](CXMLNode& element, std::size_t place)
                                          { return predicates[place].Passes(element); }));
}

void* CXMLSettings::FindElementHandleWithValue(const CString& path, const CString& childName,
                                               const CString& childValue, void* start)
{
    CXMLNode* node = FindStart(start);
    if (!node)
        return nullptr;
    const auto test = [&](const CXMLNode& element)
    {
        return HasChildWithValue(element, childName, childValue);
    };
    return m_Tree->GetHandle(FindTested(*node, path, test));
}

void* CXMLSettings::AddNewElementByHandle(void* parent, const CString& path)
{
    CXMLNode* node = FindNode(parent);
    return node ? m_Tree->GetHandle(AddXMLBranch(*node, path)) : nullptr;
}

bool CXMLSettings::DeleteElementByHandle(void* parent, const CString& path)
{
    CXMLNode* node = FindNode(parent);
    CXMLNode* element = node ? FindXMLPath(*node, path) : nullptr;
    if (!element || !element->GetParent()) // the root stays
        return false;
    static_cast<void>(m_Tree->Take(*element));
    return true;
}

void* CXMLSettings::GetChildByHandle(void* handle, int index)
{
    CXMLNode* node = FindNode(handle);
    return node ? m_Tree->GetHandle(m_Tree->GetChild(*node, index)) : nullptr;
}

int CXMLSettings::GetChildCountByHandle(void* handle) const
{
    const CXMLNode* node = FindNode(handle);
    return node ? node->GetChildCount() : 0;
}

void* CXMLSettings::GetParentByHandle(void* handle)
{
    const CXMLNode* node = FindNode(handle);
    return node ? m_Tree->GetHandle(node->GetParent()) : nullptr;
}

void* CXMLSettings::GetNextElementByHandle(void* handle, bool sameName)
{
    const CXMLNode* node = FindNode(handle);
    if (!node)
        return nullptr;
    CXMLNode* next = node->GetNextSibling();
    while (sameName && next && !HasName(*next, node->GetName().View()))
        next = next->GetNextSibling();
    return m_Tree->GetHandle(next);
}

void* CXMLSettings::GetNextIdenticalElementByHandle(void* handle)
{
    return GetNextElementByHandle(handle, true);
}

const CString& CXMLSettings::GetElementNameByHandle(void* handle) const
{
    const CXMLNode* node = FindNode(handle);
    return node ? node->GetName() : EmptyText();
}

const CString& CXMLSettings::GetElementValueByHandle(void* handle) const
{
    const CXMLNode* node = FindNode(handle);
    return node ? node->GetValue() : EmptyText();
}

const CString& CXMLSettings::GetAttributeValueByHandle(void* handle, const CString& attribute) const
{
    CXMLNode* node = FindNode(handle);
    const CString* value = node ? node->FindAttribute(attribute) : nullptr;
    return value ? *value : EmptyText();
}

bool CXMLSettings::GetValueByHandle(void* handle, const CString& path, CString& value) const
{
    CXMLNode* node = FindNode(handle);
    const CXMLNode* element = node ? FindXMLPath(*node, path) : nullptr;
    if (!element)
        return false;
    value = element->GetValue();
    return true;
}

bool CXMLSettings::SetValueByHandle(void* handle, const CString& path, const CString& value)
{
    CXMLNode* node = FindNode(handle);
    if (!node || path.IsEmpty())
        return false;
    ProvideXMLPath(*node, path)->SetValue(value);
    SaveChange();
    return true;
}

bool CXMLSettings::SetValueByHandle(void* handle, const CString& path, int value)
{
    CString text;
    text.Format(u"%d", value);
    return SetValueByHandle(handle, path, text);
}

bool CXMLSettings::SetAttributesString(void* handle, const CString& attributes)
{
    CXMLNode* node = FindNode(handle);
    if (!node)
        return false;
    node->SetAttributes(attributes);
    return true;
}

} // namespace utility
