#include "settings/tree/PTNStrategyProfile.h"

#include "platform/base/CaseFold.h"
#include "settings/ConfigurationFault.h"
#include "settings/tree/PersistentTreeNode.h"

namespace utility
{

namespace
{

constexpr int VALUE_LIMIT =
    254; // units: readers of such files take a line through 255 with the zero
constexpr int PATH_LIMIT = 0x4000;      // units of a node's path; no settings key is as long
constexpr int SECTION_LIMIT = 0x100000; // units of all keys of a section, as readers list them

} // namespace

SECPTNStrategyProfile::SECPTNStrategyProfile(const CString& file)
    : m_File(file),
      m_ChildPrefix(u"ptn_Child"),
      m_Separator(u'.')
{
}

bool SECPTNStrategyProfile::Load()
{
    m_Taken.clear();
    return m_Content.Load(m_File);
}

void SECPTNStrategyProfile::Parse(std::string_view bytes)
{
    m_Taken.clear();
    m_Content.Parse(bytes);
}

bool SECPTNStrategyProfile::Flush()
{
    return m_Content.Save(m_File);
}

bool SECPTNStrategyProfile::GetNodePath(const SECPersistentTreeNode& node, CString& path) const
{
    return JoinNames(node, m_Separator, path);
}

/// False, told in the log, for a section that another node has: a name with the separator in it can
/// look like a path.
bool SECPTNStrategyProfile::TakeSection(const SECPersistentTreeNode& node, CString& section)
{
    if (!GetNodePath(node, section) || section.GetLength() > PATH_LIMIT)
        return Refuse(node.GetName(), CString());
    CString folded = section;
    folded.MakeLower();
    return m_Taken.insert(folded).second || Refuse(section, CString());
}

bool SECPTNStrategyProfile::Refuse(const CString& section, const CString& key)
{
    return FailConfiguration(EConfigurationFault::CannotStand, u"[" + section + u"] " + key);
}

bool SECPTNStrategyProfile::DeleteSection(const SECPersistentTreeNode& node)
{
    CString section;
    if (!TakeSection(node, section))
        return false;
    m_Content.DeleteSection(section);
    m_Content.AddSection(section);
    return true;
}

bool SECPTNStrategyProfile::WriteValue(const SECPersistentTreeNode& node, const CString& key,
                                       const CString& value)
{
    CString section;
    if (!GetNodePath(node, section) || value.GetLength() > VALUE_LIMIT || IsChildKey(key) ||
        !CProfileFile::CanHold(section.View(), key.View(), value.View()))
        return Refuse(section, key);
    m_Content.SetValue(section, key, value);
    return true;
}

bool SECPTNStrategyProfile::WriteChildren(const SECPersistentTreeNode& node)
{
    CString section;
    if (!GetNodePath(node, section))
        return false;
    int number = 0;
    for (const SECPersistentTreeNode* child : node.GetChildren())
    {
        CString key;
        key.Format(u"%s%d", m_ChildPrefix, ++number);
        const CString& name = child->GetName();
        if (name.GetLength() > VALUE_LIMIT ||
            !CProfileFile::CanHold(section.View(), key.View(), name.View()))
            return Refuse(section, name);
        m_Content.SetValue(section, key, name);
    }
    return true;
}

bool SECPTNStrategyProfile::IsChildKey(const CString& key) const
{
    return EqualNoCase(key.Left(m_ChildPrefix.GetLength()).View(), m_ChildPrefix.View());
}

bool SECPTNStrategyProfile::ReadAll(const SECPersistentTreeNode& node,
                                    std::vector<CString>& children, CKeyValues& values)
{
    CString section;
    if (!TakeSection(node, section))
        return false;
    const CProfileFile::CEntries* entries = m_Content.FindSection(section);
    if (!entries)
        return node.GetParent() != nullptr; // a child without a section is an empty key

    int listed = 0;
    for (const auto& [key, value] : *entries)
    {
        listed += key.GetLength() + 1;
        if (listed > SECTION_LIMIT)
            return Refuse(section, key);
        if (IsChildKey(key))
            children.push_back(value.Left(VALUE_LIMIT));
        else
            values.emplace_back(key, value.Left(VALUE_LIMIT));
    }
    return true;
}

} // namespace utility
