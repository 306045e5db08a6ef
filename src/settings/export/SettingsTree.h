#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/system/RegistryHive.h"

#include <vector>

namespace utility
{

/// A value of the settings store as it stands there.
struct CSettingsValue
{
    CString m_Name;
    DWORD m_Type = REG_NONE;
    std::vector<BYTE> m_Data;

    bool operator==(const CSettingsValue&) const = default;
};

/// A key with its values, without what is below it.
struct CSettingsKey
{
    int m_Level = 0; // below the tree's top
    CString m_Name;  // empty for the top, whose place the caller knows
    std::vector<CSettingsValue> m_Values;
};

/// A key of the settings store with all below it, in memory.
///
/// The keys stand in one list, each right before its sub-keys, so that no walk follows their depth
/// by recursion. A value; the store is touched by `Read` and `Store` alone.
class UTILITY_CORE_API CSettingsTree
{
public:
    /// Units of a key's path below the top, with its separators. What lies deeper is refused, so
    /// that a file of a few bytes a key cannot ask for more than some kilobytes a key.
    static constexpr int PATH_LIMIT = 2047;

    /// False if the key is not there or cannot be read.
    [[nodiscard]] bool Read(HKEY root, const CString& path);
    /// Merges into the key, which is made if need be, in one transaction: all or nothing.
    [[nodiscard]] bool Store(HKEY root, const CString& path) const;

    const std::vector<CSettingsKey>& GetKeys() const { return m_Keys; }
    /// Behind the last key; `level` is at most one below that key's.
    void AddKey(int level, const CString& name);
    void AddValue(std::size_t key, CSettingsValue value);

private:
    std::vector<CSettingsKey> m_Keys;
};

/// The path of a key below the top, kept up along a walk over the keys in their order.
class UTILITY_CORE_API CSettingsPath
{
public:
    /// Steps to the next key of the list, which then has `GetPath()`: `\View\Layers`, "" for the
    /// top.
    void Enter(int level, const CString& name);
    const CString& GetPath() const { return m_Path; }

private:
    CString m_Path;
    std::vector<int> m_Lengths; // of the paths of the keys that enclose the present one
};

} // namespace utility
