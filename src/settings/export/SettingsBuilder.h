#pragma once

#include "settings/export/SettingsFault.h"
#include "settings/export/SettingsTree.h"

#include <string_view>
#include <unordered_set>
#include <vector>

namespace utility
{

/// Where reading a file ended early: the place as a byte offset.
struct CSettingsStop
{
    ESettingsFault m_Kind = ESettingsFault::None;
    CString m_Name;
    std::size_t m_Offset = 0;
};

/// Puts a tree together from what the readers of exported files find, and refuses what no key could
/// hold. Names and texts come as they stand in the file, in UTF-8.
class CSettingsBuilder
{
public:
    explicit CSettingsBuilder(CSettingsTree& tree) : m_Tree(tree) {}

    /// The one key that encloses all others; false if it is not called `wanted`, in any case of
    /// letters.
    bool OpenTop(const CString& name, const CString& wanted, std::size_t offset);
    bool OpenKey(std::string_view name, std::size_t offset);
    void CloseKey();
    bool AddValue(std::string_view name, std::string_view type, const std::vector<CString>& texts,
                  std::size_t offset);

    bool IsOpen() const { return !m_Open.empty(); }

    /// Notes the fault; always false.
    bool Stop(ESettingsFault kind, std::size_t offset, const CString& name = CString());
    const CSettingsStop& GetStop() const { return m_Stop; }

private:
    struct COpenKey
    {
        std::size_t m_Index = 0;
        std::unordered_set<CString> m_Keys; // folded names, for each may stand once
        std::unordered_set<CString> m_Values;
    };

    bool TakeName(std::unordered_set<CString>& taken, const CString& name, std::size_t offset);

    CSettingsTree& m_Tree;
    CSettingsPath m_Path;
    std::vector<COpenKey> m_Open;
    CSettingsStop m_Stop;
};

} // namespace utility
