#include "settings/tree/TreeNode.h"

#include <vector>

namespace utility
{

CTreeNode::CTreeNode() : m_Children(10) {}

CTreeNode::CTreeNode(void* data, CTreeNode* parent) : m_Parent(parent), m_Children(10), m_Data(data)
{
}

CTreeNode::~CTreeNode()
{
    // Every node below gives its children to this list before it goes, so that nothing is deleted
    // in depth.
    std::vector<CTreeNode*> nodes;
    TakeChildren(nodes);
    for (std::size_t at = 0; at < nodes.size(); ++at)
        nodes[at]->TakeChildren(nodes);
    for (const CTreeNode* node : nodes)
        delete node;
}

void CTreeNode::TakeChildren(std::vector<CTreeNode*>& nodes)
{
    for (POSITION position = m_Children.GetHeadPosition(); position;)
    {
        if (CTreeNode* child = m_Children.GetNext(position))
            nodes.push_back(child);
    }
    m_Children.RemoveAll();
}

CTreeNode* CTreeNode::FirstNode(__POSITION*& position) const
{
    position = m_Children.GetHeadPosition();
    return ThisNode(position) ? ThisNode(position) : NextNode(position);
}

CTreeNode* CTreeNode::NextNode(__POSITION*& position) const
{
    while (position)
    {
        m_Children.GetNext(position);
        if (CTreeNode* node = ThisNode(position))
            return node;
    }
    return nullptr;
}

CTreeNode* CTreeNode::ThisNode(__POSITION* position) const
{
    return position ? m_Children.GetAt(position) : nullptr;
}

__POSITION* CTreeNode::InsertBefore(CTreeNode* node, __POSITION* position)
{
    if (node)
        node->m_Parent = this;
    return position ? m_Children.InsertBefore(position, node) : m_Children.AddHead(node);
}

__POSITION* CTreeNode::InsertBefore(void* data, __POSITION* position)
{
    return InsertBefore(new CTreeNode(data, this), position);
}

__POSITION* CTreeNode::InsertAfter(CTreeNode* node, __POSITION* position)
{
    if (node)
        node->m_Parent = this;
    return position ? m_Children.InsertAfter(position, node) : m_Children.AddTail(node);
}

__POSITION* CTreeNode::InsertAfter(void* data, __POSITION* position)
{
    return InsertAfter(new CTreeNode(data, this), position);
}

CTreeNode* CTreeNode::Find(void* data) const
{
    POSITION position = nullptr;
    CTreeNode* node = FirstNode(position);
    while (node && node->m_Data != data)
        node = NextNode(position);
    return node;
}

CTreeNode* CTreeNode::TreeFind(void* data)
{
    std::vector<CTreeNode*> open{this};
    while (!open.empty())
    {
        CTreeNode* node = open.back();
        open.pop_back();
        if (node->m_Data == data)
            return node;
        for (POSITION position = node->m_Children.GetTailPosition(); position;)
        {
            if (CTreeNode* child = node->m_Children.GetPrev(position))
                open.push_back(child);
        }
    }
    return nullptr;
}

CTreeNode* CTreeNode::RemoveNode(__POSITION* position)
{
    CTreeNode* node = ThisNode(position);
    if (position)
        m_Children.RemoveAt(position);
    if (node)
        node->m_Parent = nullptr;
    return node;
}

void CTreeNode::DeleteNode(__POSITION* position)
{
    delete RemoveNode(position);
}

} // namespace utility
