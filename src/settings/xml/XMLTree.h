#pragma once

#include "settings/xml/XMLNode.h"

#include <unordered_map>

namespace utility
{

/// The elements below one root, and the handles by which callers hold some of them.
///
/// A handle is a number that no element of this process had before: one of a deleted element, of
/// another tree, or of nothing at all is known as bad for certain.
class CXMLTree
{
public:
    CXMLNode& GetRoot() { return m_Root; }

    /// The element's handle, made when first asked for; null for null.
    void* GetHandle(CXMLNode* node);
    /// Null for a bad handle.
    CXMLNode* FindNode(void* handle) const;

    /// Null for an index out of range. Children asked for in their order cost one step each.
    CXMLNode* GetChild(CXMLNode& parent, int index);

    /// Takes an element out, and ends the handles of it and all below.
    [[nodiscard]] std::unique_ptr<CXMLNode> Take(CXMLNode& node);

private:
    CXMLNode m_Root;
    std::unordered_map<void*, CXMLNode*> m_Nodes; // by handle
    CXMLNode* m_LastChild = nullptr;              // that GetChild gave
    int m_LastIndex = 0;
};

} // namespace utility
