#pragma once

#include "platform/system/RegistryHive.h"
#include "settings/tree/PTNStrategy.h"

namespace utility
{

/// Stores a tree as a settings key and the keys below it, all values as text.
class UTILITY_CORE_API SECPTNStrategyRegistry : public SECPTNStrategy
{
public:
    /// Nodes stand below `base`, the tree's root as a sub-key of it.
    SECPTNStrategyRegistry(const CString& base, HKEY root);

    /// Does nothing: what a tree does not name stays in the key.
    bool DeleteSection(const SECPersistentTreeNode& node) override;
    bool WriteValue(const SECPersistentTreeNode& node, const CString& key,
                    const CString& value) override;
    bool WriteChildren(const SECPersistentTreeNode& node) override;
    bool ReadAll(const SECPersistentTreeNode& node, std::vector<CString>& children,
                 CKeyValues& values) override;
    /// Each name with a separator behind it.
    bool GetNodePath(const SECPersistentTreeNode& node, CString& path) const override;

protected:
    /// One stored value as text; false leaves it out.
    virtual bool TextOf(DWORD type, const BYTE* data, DWORD size, CString& text) const;

    HKEY OpenNode(const SECPersistentTreeNode& node, bool read) const;
    bool Store(const SECPersistentTreeNode& node, const CString& name, DWORD type, const void* data,
               std::size_t size) const;
    bool StoreText(const SECPersistentTreeNode& node, const CString& name,
                   const CString& text) const;

    CString m_Base; // with a separator behind it
    HKEY m_Root;
};

} // namespace utility
