#pragma once

#include "platform/system/ProfileFile.h"
#include "settings/tree/PTNStrategy.h"

#include <unordered_set>

namespace utility
{

/// Stores a tree as the sections of a profile file, "[Root.Child]" for each node, children as
/// "ptn_Child1=name" ...
///
/// The file is read once and written once, by `Flush`. What a line could not give back is refused.
class UTILITY_CORE_API SECPTNStrategyProfile : public SECPTNStrategy
{
public:
    explicit SECPTNStrategyProfile(const CString& file);

    /// Reads the file; false if it cannot be read.
    [[nodiscard]] bool Load();
    /// Takes the bytes of a file instead.
    void Parse(std::string_view bytes);
    /// Replaces the file by what was written, or leaves it alone.
    [[nodiscard]] bool Flush();

    const CProfileFile& GetContent() const { return m_Content; }

    bool DeleteSection(const SECPersistentTreeNode& node) override;
    bool WriteValue(const SECPersistentTreeNode& node, const CString& key,
                    const CString& value) override;
    bool WriteChildren(const SECPersistentTreeNode& node) override;
    /// False also for a section that another node has taken: such a file could stand for endless
    /// trees.
    bool ReadAll(const SECPersistentTreeNode& node, std::vector<CString>& children,
                 CKeyValues& values) override;
    bool GetNodePath(const SECPersistentTreeNode& node, CString& path) const override;

private:
    bool TakeSection(const SECPersistentTreeNode& node, CString& section);
    bool IsChildKey(const CString& key) const;
    static bool Refuse(const CString& section, const CString& key);

    CString m_File;
    CString m_ChildPrefix;
    char16_t m_Separator;
    CProfileFile m_Content;
    std::unordered_set<CString> m_Taken; // folded section names met so far
};

} // namespace utility
