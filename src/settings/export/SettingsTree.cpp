#include "settings/export/SettingsTree.h"

#include "platform/base/ErrorCodes.h"

#include <utility>

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u'\\';

/// Closes a key at the end of a scope.
class CKeyGuard
{
public:
    explicit CKeyGuard(HKEY key) : m_Key(key) {}
    ~CKeyGuard() { RegCloseKey(m_Key); }
    CKeyGuard(const CKeyGuard&) = delete;
    CKeyGuard& operator=(const CKeyGuard&) = delete;

private:
    HKEY m_Key;
};

bool ReadValues(HKEY key, std::vector<CSettingsValue>& values)
{
    DWORD longestName = 0;
    DWORD longestValue = 0;
    LONG code =
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, &longestName, &longestValue);
    std::vector<char16_t> name(longestName + 1);
    std::vector<BYTE> data(longestValue + 1);
    for (DWORD index = 0; code == ERROR_SUCCESS; ++index)
    {
        CSettingsValue value;
        DWORD length = longestName + 1;
        DWORD size = longestValue;
        code = RegEnumValueW(key, index, name.data(), &length, nullptr, &value.m_Type, data.data(),
                             &size);
        if (code != ERROR_SUCCESS)
            break;
        value.m_Name = CString(name.data());
        value.m_Data.assign(data.data(), data.data() + size);
        values.push_back(std::move(value));
    }
    return code == ERROR_NO_MORE_ITEMS;
}

bool ReadNames(HKEY key, std::vector<CString>& names)
{
    DWORD longest = 0;
    LONG code = RegQueryInfoKeyW(key, nullptr, &longest, nullptr, nullptr, nullptr, nullptr);
    std::vector<char16_t> name(longest + 1);
    for (DWORD index = 0; code == ERROR_SUCCESS; ++index)
    {
        DWORD length = longest + 1;
        code = RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr);
        if (code == ERROR_SUCCESS)
            names.emplace_back(name.data());
    }
    return code == ERROR_NO_MORE_ITEMS;
}

bool StoreKey(HKEY root, const CString& path, const std::vector<CSettingsValue>& values)
{
    HKEY key = nullptr;
    if (RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) !=
        ERROR_SUCCESS)
        return false;
    const CKeyGuard guard(key);
    for (const CSettingsValue& value : values)
    {
        if (RegSetValueExW(key, value.m_Name, 0, value.m_Type, value.m_Data.data(),
                           static_cast<DWORD>(value.m_Data.size())) != ERROR_SUCCESS)
            return false;
    }
    return true;
}

} // namespace

bool CSettingsTree::Read(HKEY root, const CString& path)
{
    std::vector<CSettingsKey> keys;
    std::vector<CSettingsKey> due{CSettingsKey()};
    CSettingsPath place;
    while (!due.empty())
    {
        keys.push_back(std::move(due.back()));
        due.pop_back();
        CSettingsKey& read = keys.back();
        place.Enter(read.m_Level, read.m_Name);

        HKEY key = nullptr;
        if (RegOpenKeyExW(root, path + place.GetPath(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        const CKeyGuard guard(key);
        std::vector<CString> names;
        if (!ReadValues(key, read.m_Values) || !ReadNames(key, names))
            return false;
        for (auto name = names.rbegin(); name != names.rend(); ++name)
            due.push_back({read.m_Level + 1, *name, {}});
    }
    m_Keys = std::move(keys);
    return true;
}

bool CSettingsTree::Store(HKEY root, const CString& path) const
{
    CRegistryTransaction transaction(root);
    CSettingsPath place;
    for (const CSettingsKey& key : m_Keys)
    {
        place.Enter(key.m_Level, key.m_Name);
        if (!StoreKey(root, path + place.GetPath(), key.m_Values))
            return false;
    }
    return transaction.Commit();
}

void CSettingsTree::AddKey(int level, const CString& name)
{
    m_Keys.push_back({level, name, {}});
}

void CSettingsTree::AddValue(std::size_t key, CSettingsValue value)
{
    m_Keys[key].m_Values.push_back(std::move(value));
}

void CSettingsPath::Enter(int level, const CString& name)
{
    m_Lengths.resize(static_cast<std::size_t>(level) + 1);
    if (level == 0)
    {
        m_Path.Empty();
        return;
    }
    // Cut back to the enclosing key's own length; one step deeper there is nothing to cut.
    m_Path = m_Path.Left(m_Lengths[static_cast<std::size_t>(level) - 1]);
    m_Path += SEPARATOR;
    m_Path += name;
    m_Lengths.back() = m_Path.GetLength();
}

} // namespace utility
