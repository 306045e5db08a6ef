#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/MapStringToString.h"
#include "platform/base/object/Object.h"

#include <memory>

namespace utility
{

/// One element: a name, a value, the text of its attributes, and the elements below, which it owns.
///
/// Children are chained by links of their own: a list beside them would double the cost of loading.
/// Nothing here follows the depth of a tree by recursion, so depth is bounded by memory alone.
class UTILITY_CORE_API CXMLNode : public CObject
{
public:
    CXMLNode() = default;
    ~CXMLNode() override;

    const CString& GetName() const { return m_Name; }
    void SetName(const CString& name) { m_Name = name; }
    const CString& GetValue() const { return m_Value; }
    void SetValue(const CString& value) { m_Value = value; }

    // Attributes: one raw text, and the map made of it by the first look-up

    const CString& GetAttributes() const { return m_Attributes; }
    /// A map that is there already stays as it is.
    void SetAttributes(const CString& attributes) { m_Attributes = attributes; }
    /// Null if there is none of that name, in any case of letters. Never decoded.
    ///
    ///     text                  name  value
    ///     a="1" B = "2"         "a"   "1"       "b " "2": blanks before "=" belong to the name
    ///     a='1' b="2"           "a"   "2"       single quotes are none
    ///     a="1" a="2" b="3      "a"   "2"       the last counts; an open quote ends the map
    const CString* FindAttribute(const CString& name);

    // Children

    bool HasChildren() const { return m_FirstChild != nullptr; }
    int GetChildCount() const { return m_ChildCount; }
    CXMLNode* AddChild(std::unique_ptr<CXMLNode> child);
    CXMLNode* AddChild(const CString& name);
    CXMLNode* GetFirstChild() const { return m_FirstChild; }
    /// The first of that name, in any case of letters, or null.
    CXMLNode* FindChild(std::u16string_view name) const;

    // Neighbours; null where there is none

    CXMLNode* GetParent() const { return m_Parent; }
    CXMLNode* GetNextSibling() const { return m_Next; }
    /// Out of the parent's list, to the caller.
    [[nodiscard]] std::unique_ptr<CXMLNode> TakeFromParent();
    /// The next element in the order of the text, among those below `top`.
    CXMLNode* GetNextBelow(const CXMLNode& top) const;

    /// The element with all below it.
    std::unique_ptr<CXMLNode> Clone() const;

    /// What callers know the element by; null while none of them does.
    void* GetHandle() const { return m_Handle; }
    void SetHandle(void* handle) { m_Handle = handle; }

private:
    void MakeAttributeMap();
    void CopyTextsTo(CXMLNode& other) const;

    static constexpr int ATTRIBUTE_BLOCK = 10;

    CString m_Name;
    CXMLNode* m_FirstChild = nullptr; // owned, as are its neighbours
    CXMLNode* m_LastChild = nullptr;
    int m_ChildCount = 0;
    CXMLNode* m_Parent = nullptr; // null at the root
    CString m_Value;
    CString m_Attributes;
    std::unique_ptr<CMapStringToString> m_AttributeMap; // null until first looked up
    CXMLNode* m_Previous = nullptr;                     // among the parent's children
    CXMLNode* m_Next = nullptr;
    void* m_Handle = nullptr;
};

} // namespace utility
