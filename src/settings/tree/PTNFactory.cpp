#include "settings/tree/PTNFactory.h"

#include "platform/base/object/RuntimeClass.h"
#include "settings/tree/PersistentTreeNode.h"

namespace utility
{

SECPTNFactory::SECPTNFactory(const CRuntimeClass* nodeClass) : m_NodeClass(nodeClass) {}

SECPTNFactory::~SECPTNFactory()
{
    // Each node's own children come into this list before the node goes, so that nothing is deleted
    // in depth.
    for (std::size_t at = 0; at < m_Nodes.size(); ++at)
    {
        SECPTNFactory* below = m_Nodes[at]->m_Factory.get();
        if (!below)
            continue;
        for (auto& node : below->m_Nodes)
            m_Nodes.push_back(std::move(node));
        below->m_Nodes.clear();
    }
}

SECPersistentTreeNode* SECPTNFactory::Make()
{
    std::unique_ptr<CObject> made(m_NodeClass->CreateObject());
    if (!made || !made->IsKindOf(RUNTIME_CLASS(SECPersistentTreeNode)))
        return nullptr;
    m_Nodes.emplace_back(static_cast<SECPersistentTreeNode*>(made.release()));
    return m_Nodes.back().get();
}

} // namespace utility
