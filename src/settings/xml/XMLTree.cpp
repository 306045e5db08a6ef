#include "settings/xml/XMLTree.h"

#include <atomic>
#include <cstdint>

namespace utility
{

namespace
{

constinit std::atomic<std::uintptr_t> lastHandle = 0;

void* NewHandle()
{
    return reinterpret_cast<void*>(++lastHandle);
}

} // namespace

void* CXMLTree::GetHandle(CXMLNode* node)
{
    if (!node)
        return nullptr;
    if (!node->GetHandle())
    {
        node->SetHandle(NewHandle());
        m_Nodes[node->GetHandle()] = node;
    }
    return node->GetHandle();
}

CXMLNode* CXMLTree::FindNode(void* handle) const
{
    const auto found = m_Nodes.find(handle);
    return found == m_Nodes.end() ? nullptr : found->second;
}

CXMLNode* CXMLTree::GetChild(CXMLNode& parent, int index)
{
    if (index < 0 || index >= parent.GetChildCount())
        return nullptr;
    if (!m_LastChild || m_LastChild->GetParent() != &parent || m_LastIndex > index)
    {
        m_LastChild = parent.GetFirstChild();
        m_LastIndex = 0;
    }
    for (; m_LastIndex < index; ++m_LastIndex)
        m_LastChild = m_LastChild->GetNextSibling();
    return m_LastChild;
}

std::unique_ptr<CXMLNode> CXMLTree::Take(CXMLNode& node)
{
    m_LastChild = nullptr;
    for (CXMLNode* ended = &node; ended && !m_Nodes.empty(); ended = ended->GetNextBelow(node))
    {
        m_Nodes.erase(ended->GetHandle());
        ended->SetHandle(nullptr);
    }
    return node.TakeFromParent();
}

} // namespace utility
