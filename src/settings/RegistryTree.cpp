#include "platform/base/ErrorCodes.h"
#include "settings/Registry.h"

#include <array>
#include <atomic>

namespace utility
{

namespace
{

constexpr DWORD NAME_BUFFER = 2048; // units
constexpr char16_t SEPARATOR = u'\\';

constinit std::atomic<LONG> LastCopyFailure = ERROR_SUCCESS;

struct CCopiedValue
{
    CString m_Name;
    DWORD m_Type = 0;
    std::vector<BYTE> m_Data;
};

struct CCopiedKey
{
    CString m_Tail; // below the tree's own key, with a leading separator
    CString m_Class;
    std::vector<CCopiedValue> m_Values;
};

void ReadValues(HKEY key, CCopiedKey& copy)
{
    DWORD nameLength = 0;
    DWORD valueLength = 0;
    if (RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, &nameLength, &valueLength) !=
        ERROR_SUCCESS)
        return;
    std::vector<char16_t> name(nameLength + 1);
    std::vector<BYTE> data(valueLength + 1);
    for (DWORD index = 0;; ++index)
    {
        CCopiedValue value;
        DWORD length = nameLength + 1;
        DWORD size = valueLength;
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, &value.m_Type, data.data(),
                          &size) != ERROR_SUCCESS)
            return;
        value.m_Name = CString(name.data());
        value.m_Data.assign(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size));
        copy.m_Values.push_back(std::move(value));
    }
}

void AddSubKeys(HKEY key, const CString& tail, std::vector<CCopiedKey>& keys)
{
    DWORD nameLength = 0;
    DWORD classLength = 0;
    if (RegQueryInfoKeyW(key, nullptr, &nameLength, &classLength, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
        return;
    std::vector<char16_t> name(nameLength + 1);
    std::vector<char16_t> className(classLength + 1);
    for (DWORD index = 0;; ++index)
    {
        DWORD length = nameLength + 1;
        DWORD space = classLength + 1;
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, className.data(), &space) !=
            ERROR_SUCCESS)
            return;
        keys.push_back({tail + SEPARATOR + CString(name.data()), CString(className.data()), {}});
    }
}

/// The whole tree, parents first, so that a copy into itself ends.
bool ReadTree(HKEY root, const CString& path, std::vector<CCopiedKey>& keys)
{
    keys.emplace_back();
    for (std::size_t at = 0; at < keys.size(); ++at)
    {
        HKEY key = nullptr;
        const CString tail = keys[at].m_Tail;
        if (RegOpenKeyExW(root, path + tail, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        ReadValues(key, keys[at]);
        AddSubKeys(key, tail, keys);
        RegCloseKey(key);
    }
    return true;
}

bool WriteKey(HKEY root, const CString& path, const CCopiedKey& copy)
{
    HKEY key = nullptr;
    const LONG made = RegCreateKeyExW(root, path + copy.m_Tail, 0, copy.m_Class, 0, KEY_ALL_ACCESS,
                                      nullptr, &key, nullptr);
    if (made != ERROR_SUCCESS)
    {
        LastCopyFailure = made;
        return false;
    }
    for (const CCopiedValue& value : copy.m_Values)
    {
        const LONG code = RegSetValueExW(key, value.m_Name, 0, value.m_Type, value.m_Data.data(),
                                         static_cast<DWORD>(value.m_Data.size()));
        if (code != ERROR_SUCCESS)
            LastCopyFailure = code;
    }
    RegCloseKey(key);
    return true;
}

/// On purpose no separator before a path that ends in one.
CString ComposePath(const CString& key, const CString& sub)
{
    const bool between = !key.IsEmpty() && !sub.IsEmpty() && !sub.View().starts_with(SEPARATOR) &&
                         !sub.View().ends_with(SEPARATOR);
    return between ? key + SEPARATOR + sub : key + sub;
}

} // namespace

bool CRegistry::QueryInfo(DWORD& maxValueLength) const
{
    if (!Open(true))
        return false;
    const LONG code =
        RegQueryInfoKeyW(m_OpenKey, nullptr, nullptr, nullptr, nullptr, nullptr, &maxValueLength);
    Close();
    return code == ERROR_SUCCESS;
}

bool CRegistry::GetNext(CString& name, int index) const
{
    std::array<char16_t, NAME_BUFFER> buffer;
    if (index < 0 || !Open(true))
        return false;
    DWORD length = NAME_BUFFER;
    const LONG code = RegEnumKeyExW(m_OpenKey, static_cast<DWORD>(index), buffer.data(), &length,
                                    nullptr, nullptr, nullptr);
    Close();
    if (code == ERROR_SUCCESS)
        name = buffer.data();
    return code == ERROR_SUCCESS;
}

bool CRegistry::GetNextValue(CString& name, int index) const
{
    std::array<char16_t, NAME_BUFFER> buffer;
    if (index < 0 || !Open(true))
        return false;
    DWORD length = NAME_BUFFER;
    const LONG code = RegEnumValueW(m_OpenKey, static_cast<DWORD>(index), buffer.data(), &length,
                                    nullptr, nullptr, nullptr, nullptr);
    Close();
    if (code == ERROR_SUCCESS)
        name = buffer.data();
    return code == ERROR_SUCCESS;
}

bool CRegistry::DeleteAllValues()
{
    CString name;
    if (!GetNextValue(name, 0))
        return true; // nothing is begun for nothing
    CRegistryTransaction transaction(m_Root);
    do
    {
        if (!DeleteValue(name))
            return false;
    } while (GetNextValue(name, 0));
    return transaction.Commit();
}

/// Deletes a key and all below it, deepest first, without recursion.
bool CRegistry::DeleteKeyAt(const CString& path)
{
    CRegistryTransaction transaction(m_Root);
    std::vector<CString> open{path};
    while (!open.empty())
    {
        CRegistry key(open.back(), m_Root);
        CString child;
        if (key.GetNext(child, 0))
        {
            open.push_back(open.back() + SEPARATOR + child);
            continue;
        }
        if (!key.DeleteAllValues() || RegDeleteKeyW(m_Root, open.back()) != ERROR_SUCCESS)
            return false;
        open.pop_back();
    }
    return transaction.Commit();
}

bool CRegistry::DeleteKey(const CString& sub)
{
    CRegistry key(*this);
    key.AddTailToKey(sub);
    return DeleteKeyAt(key.m_Key);
}

bool CRegistry::DeleteKey()
{
    if (m_Key.IsEmpty() || !KeyExists())
        return false;
    const CString path = m_Key;
    CString tail;
    SplitKey(m_Key, tail);
    return DeleteKeyAt(path);
}

bool CRegistry::CopyKey(const CString& from, const CString& to)
{
    std::vector<CCopiedKey> keys;
    if (!ReadTree(m_Root, ComposePath(m_Key, from), keys))
        return false;
    CRegistryTransaction transaction(m_Root);
    const CString target = ComposePath(m_Key, to);
    if (!WriteKey(m_Root, target, keys.front()))
        return false;
    for (std::size_t at = 1; at < keys.size(); ++at)
        WriteKey(m_Root, target, keys[at]);
    return transaction.Commit();
}

LONG CRegistry::GetCopyFailure()
{
    return LastCopyFailure;
}

} // namespace utility
