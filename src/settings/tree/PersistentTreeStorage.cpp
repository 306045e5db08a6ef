#include "settings/tree/PTNStrategy.h"
#include "settings/tree/PersTreeNodeKeyValuePair.h"
#include "settings/tree/PersistentTreeNode.h"

#include <algorithm>

namespace utility
{

bool SECPersistentTreeNode::LoadOwn(SECPTNStrategy& strategy)
{
    std::vector<CString> children;
    SECPTNStrategy::CKeyValues values;
    if (!strategy.ReadAll(*this, children, values))
        return false;
    for (auto& [key, value] : values)
        SetString(key.Trim(), value, false); // of equal keys the first stands
    for (const CString& name : children)
        AddChild(name, nullptr);
    return true;
}

bool SECPersistentTreeNode::Load(SECPTNStrategy& strategy)
{
    // Depth comes from outside, so nodes wait in a list instead of on the stack.
    std::vector<SECPersistentTreeNode*> open{this};
    while (!open.empty())
    {
        SECPersistentTreeNode* node = open.back();
        open.pop_back();
        if (!node->LoadOwn(strategy))
            return false;
        open.insert(open.end(), node->m_Children.rbegin(), node->m_Children.rend());
    }
    return true;
}

bool SECPersistentTreeNode::SaveOwn(SECPTNStrategy& strategy) const
{
    bool saved = strategy.DeleteSection(*this);
    for (const auto& pair : m_Pairs)
        saved = strategy.WriteValue(*this, pair->GetKey(), pair->GetValue()) && saved;
    return strategy.WriteChildren(*this) && saved;
}

bool SECPersistentTreeNode::Save(SECPTNStrategy& strategy) const
{
    bool saved = true;
    std::vector<const SECPersistentTreeNode*> open{this};
    while (!open.empty())
    {
        const SECPersistentTreeNode* node = open.back();
        open.pop_back();
        saved = node->SaveOwn(strategy) && saved;
        open.insert(open.end(), node->m_Children.rbegin(), node->m_Children.rend());
    }
    return saved;
}

SECPTNStrategy::~SECPTNStrategy() = default;

bool SECPTNStrategy::JoinNames(const SECPersistentTreeNode& node, char16_t separator, CString& path)
{
    std::vector<const SECPersistentTreeNode*> line;
    for (const SECPersistentTreeNode* at = &node; at; at = at->GetParent())
        line.push_back(at);
    path.Empty();
    for (auto at = line.rbegin(); at != line.rend(); ++at)
    {
        if ((*at)->GetName().IsEmpty())
            return false;
        if (!path.IsEmpty())
            path += separator;
        path += (*at)->GetName();
    }
    return true;
}

} // namespace utility
