#include "settings/tree/PTNStrategyRegistry.h"

#include "platform/base/ErrorCodes.h"
#include "settings/tree/PersistentTreeNode.h"

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u'\\';

void ReadNames(HKEY key, DWORD longest, std::vector<CString>& names)
{
    std::vector<char16_t> buffer(longest + 1);
    for (DWORD index = 0;; ++index)
    {
        DWORD length = longest + 1;
        if (RegEnumKeyExW(key, index, buffer.data(), &length, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return;
        names.emplace_back(buffer.data());
    }
}

} // namespace

SECPTNStrategyRegistry::SECPTNStrategyRegistry(const CString& base, HKEY root)
    : m_Base(base + SEPARATOR),
      m_Root(root)
{
}

bool SECPTNStrategyRegistry::GetNodePath(const SECPersistentTreeNode& node, CString& path) const
{
    if (!JoinNames(node, SEPARATOR, path))
        return false;
    path += SEPARATOR;
    return true;
}

bool SECPTNStrategyRegistry::DeleteSection(const SECPersistentTreeNode&)
{
    return true;
}

/// Null if the key cannot be opened or made.
HKEY SECPTNStrategyRegistry::OpenNode(const SECPersistentTreeNode& node, bool read) const
{
    CString path;
    HKEY key = nullptr;
    if (!GetNodePath(node, path))
        return nullptr;
    path = m_Base + path;
    const LONG code =
        read ? RegOpenKeyExW(m_Root, path, 0, KEY_READ, &key)
             : RegCreateKeyExW(m_Root, path, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    return code == ERROR_SUCCESS ? key : nullptr;
}

bool SECPTNStrategyRegistry::Store(const SECPersistentTreeNode& node, const CString& name,
                                   DWORD type, const void* data, std::size_t size) const
{
    const HKEY key = OpenNode(node, false);
    if (!key)
        return false;
    const LONG code = RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data),
                                     static_cast<DWORD>(size));
    RegCloseKey(key);
    return code == ERROR_SUCCESS;
}

bool SECPTNStrategyRegistry::StoreText(const SECPersistentTreeNode& node, const CString& name,
                                       const CString& text) const
{
    const auto units = static_cast<std::size_t>(text.GetLength()) + 1;
    return Store(node, name, REG_SZ, text.GetString(), units * sizeof(char16_t));
}

bool SECPTNStrategyRegistry::WriteValue(const SECPersistentTreeNode& node, const CString& key,
                                        const CString& value)
{
    return StoreText(node, key, value);
}

bool SECPTNStrategyRegistry::WriteChildren(const SECPersistentTreeNode& node)
{
    const HKEY key = OpenNode(node, false); // so that a key without values is made
    if (!key)
        return false;
    RegCloseKey(key);
    return true;
}

bool SECPTNStrategyRegistry::ReadAll(const SECPersistentTreeNode& node,
                                     std::vector<CString>& children, CKeyValues& values)
{
    const HKEY key = OpenNode(node, true);
    if (!key)
        return false;
    DWORD longestKey = 0;
    DWORD longestName = 0;
    DWORD longestValue = 0;
    LONG code =
        RegQueryInfoKeyW(key, nullptr, &longestKey, nullptr, nullptr, &longestName, &longestValue);
    if (code == ERROR_SUCCESS)
        ReadNames(key, longestKey, children);

    std::vector<char16_t> name(longestName + 1);
    std::vector<BYTE> data(longestValue + 1);
    for (DWORD index = 0; code == ERROR_SUCCESS; ++index)
    {
        DWORD length = longestName + 1;
        DWORD size = longestValue;
        DWORD type = REG_NONE;
        CString text;
        code = RegEnumValueW(key, index, name.data(), &length, nullptr, &type, data.data(), &size);
        if (code == ERROR_SUCCESS && TextOf(type, data.data(), size, text))
            values.emplace_back(CString(name.data()), text);
    }
    RegCloseKey(key);
    return code == ERROR_NO_MORE_ITEMS;
}

bool SECPTNStrategyRegistry::TextOf(DWORD type, const BYTE* data, DWORD size, CString& text) const
{
    if (type != REG_SZ)
        return false;
    std::u16string units(size / sizeof(char16_t), u'\0');
    if (!units.empty())
        std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    if (units.ends_with(u'\0'))
        units.pop_back();
    text = CString(std::u16string_view(units));
    return true;
}

} // namespace utility
