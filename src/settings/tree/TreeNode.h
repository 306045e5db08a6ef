#pragma once

#include "platform/base/Export.h"
#include "platform/base/collections/Position.h"
#include "platform/base/collections/PtrList.h"
#include "text/TypedItemPtrList.h"

#include <vector>

namespace utility
{

/// A simple tree: each node owns its children and refers to data of the caller.
class UTILITY_CORE_API CTreeNode
{
public:
    CTreeNode();
    CTreeNode(void* data, CTreeNode* parent);
    /// Deletes all below it, without recursion.
    virtual ~CTreeNode();
    CTreeNode(const CTreeNode&) = delete;
    CTreeNode& operator=(const CTreeNode&) = delete;

    void* Data() const { return m_Data; }
    void Data(void* data) { m_Data = data; }
    CTreeNode* Parent() const { return m_Parent; }

    // Children in order; null ends a walk
    CTreeNode* FirstNode(__POSITION*& position) const;
    CTreeNode* NextNode(__POSITION*& position) const;
    CTreeNode* ThisNode(__POSITION* position) const;

    // A null position means the head before, the tail after. The tree owns the node; a node is made
    // for bare data.
    __POSITION* InsertBefore(CTreeNode* node, __POSITION* position);
    __POSITION* InsertBefore(void* data, __POSITION* position);
    __POSITION* InsertAfter(CTreeNode* node, __POSITION* position);
    __POSITION* InsertAfter(void* data, __POSITION* position);

    /// The child with that data.
    CTreeNode* Find(void* data) const;
    /// This node or the first below it, depth first.
    CTreeNode* TreeFind(void* data);

    /// Unlinks a child and hands it to the caller.
    CTreeNode* RemoveNode(__POSITION* position);
    void DeleteNode(__POSITION* position);

private:
    void TakeChildren(std::vector<CTreeNode*>& nodes);

    CTreeNode* m_Parent = nullptr;
    CTypedItemPtrList<CPtrList, CTreeNode*> m_Children;
    void* m_Data = nullptr;
};

} // namespace utility
