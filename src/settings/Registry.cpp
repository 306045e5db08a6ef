#include "settings/Registry.h"

#include "platform/base/ErrorCodes.h"

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u'\\';

} // namespace

CRegistry::CRegistry() : m_Root(HKEY_CURRENT_USER) {}

CRegistry::CRegistry(const CString& key, HKEY root) : m_Key(key), m_Root(root) {}

CRegistry::CRegistry(const CRegistry& other) : m_Key(other.m_Key), m_Root(other.m_Root) {}

CRegistry& CRegistry::operator=(const CRegistry& other)
{
    m_Key = other.m_Key;
    m_Root = other.m_Root;
    return *this;
}

CRegistry::~CRegistry() = default;

void CRegistry::SetKey(const CString& key, HKEY root)
{
    m_Key = key;
    if (root)
        m_Root = root;
}

void CRegistry::AddTailToKey(const CString& tail)
{
    if (!m_Key.IsEmpty() && !tail.View().starts_with(SEPARATOR))
        m_Key += SEPARATOR;
    m_Key += tail;
}

void CRegistry::RemoveTailFromKey()
{
    const int cut = m_Key.ReverseFind(SEPARATOR);
    m_Key = m_Key.Left(cut < 0 ? 0 : cut);
}

void CRegistry::SplitKey(CString& key, CString& tail)
{
    key.TrimRight(SEPARATOR);
    const int cut = key.ReverseFind(SEPARATOR);
    tail = key.Mid(cut + 1);
    key = key.Left(cut < 0 ? 0 : cut);
}

bool CRegistry::OpenWith(REGSAM access) const
{
    return RegOpenKeyExW(m_Root, m_Key, 0, access, &m_OpenKey) == ERROR_SUCCESS;
}

bool CRegistry::Open(bool read) const
{
    if (read)
        return OpenWith(KEY_READ);
    return RegCreateKeyExW(m_Root, m_Key, 0, nullptr, 0, KEY_WRITE, nullptr, &m_OpenKey, nullptr) ==
           ERROR_SUCCESS;
}

bool CRegistry::Open_64BFlag(bool read) const
{
    return read ? OpenWith(KEY_READ | KEY_WOW64_64KEY) : Open(false);
}

void CRegistry::Close() const
{
    RegCloseKey(m_OpenKey);
    m_OpenKey = nullptr;
}

bool CRegistry::KeyExists() const
{
    if (!Open(true))
        return false;
    Close();
    return true;
}

bool CRegistry::KeyExists(const CString& sub)
{
    CRegistry key(*this);
    key.AddTailToKey(sub);
    return key.KeyExists();
}

} // namespace utility
