#pragma once

#include "platform/backend/sqlite/HiveFile.h"
#include "platform/system/RegistryHive.h"

#include <optional>
#include <string>

namespace utility
{

// What a right allows, as bits of a `REGSAM`
constexpr REGSAM MAY_QUERY = 0x1;
constexpr REGSAM MAY_SET = 0x2;
constexpr REGSAM MAY_MAKE_KEYS = 0x4;
constexpr REGSAM MAY_LIST = 0x8;

/// A key in a store, there or not.
struct CKeyPlace
{
    CHiveFile* m_File = nullptr;
    std::string m_Path;
};

/// What a handle stands for.
struct KeyRecord
{
    CKeyPlace m_Place;
    std::optional<CKeyPlace> m_Below; // of the classes root: what the machine has for all users
    REGSAM m_Access = KEY_ALL_ACCESS;
};

/// The key that `path` below a handle names, without asking whether it is there:
/// ERROR_INVALID_HANDLE for an unknown root, ERROR_INVALID_PARAMETER for what is no text.
LONG ResolveKey(HKEY key, LPCWSTR path, KeyRecord& record);

/// Where a root stands in its store, as it is spelled when it is made; empty for the store's own
/// root and for open keys.
std::u16string_view GetRootPath(HKEY key);

/// The key of a handle, for an operation that wants these rights.
LONG UseKey(HKEY key, REGSAM rights, KeyRecord& scratch, const KeyRecord*& record);

} // namespace utility
