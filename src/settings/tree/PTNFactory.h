#pragma once

#include "platform/base/Export.h"

#include <memory>
#include <vector>

namespace utility
{

struct CRuntimeClass;
class SECPersistentTreeNode;

/// Makes the children of a tree node, all of the node's own class, and owns them.
class UTILITY_CORE_API SECPTNFactory
{
public:
    explicit SECPTNFactory(const CRuntimeClass* nodeClass);
    /// Deletes the children and all below them, without recursion.
    ~SECPTNFactory();
    SECPTNFactory(const SECPTNFactory&) = delete;
    SECPTNFactory& operator=(const SECPTNFactory&) = delete;

    /// Null if the class cannot be made by its record.
    SECPersistentTreeNode* Make();

private:
    const CRuntimeClass* m_NodeClass;
    std::vector<std::unique_ptr<SECPersistentTreeNode>> m_Nodes;
};

} // namespace utility
