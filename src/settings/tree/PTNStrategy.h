#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <utility>
#include <vector>

namespace utility
{

class SECPersistentTreeNode;

/// Where and how a tree of nodes is stored.
class UTILITY_CORE_API SECPTNStrategy
{
public:
    using CKeyValues = std::vector<std::pair<CString, CString>>;

    virtual ~SECPTNStrategy();

    /// Forgets what is stored for the node itself.
    virtual bool DeleteSection(const SECPersistentTreeNode& node) = 0;
    virtual bool WriteValue(const SECPersistentTreeNode& node, const CString& key,
                            const CString& value) = 0;
    /// Writes the list of the node's children.
    virtual bool WriteChildren(const SECPersistentTreeNode& node) = 0;
    /// The names of the node's children, and its keys with their values.
    virtual bool ReadAll(const SECPersistentTreeNode& node, std::vector<CString>& children,
                         CKeyValues& values) = 0;
    /// Where the node is stored; false if a name on the way is empty.
    virtual bool GetNodePath(const SECPersistentTreeNode& node, CString& path) const = 0;

protected:
    /// The names from the root down, joined; false if one is empty.
    static bool JoinNames(const SECPersistentTreeNode& node, char16_t separator, CString& path);
};

} // namespace utility
