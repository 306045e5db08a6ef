#include "platform/backend/sqlite/KeyHandle.h"

#include "platform/backend/sqlite/HivePath.h"
#include "platform/backend/sqlite/HiveRoots.h"
#include "platform/base/ErrorCodes.h"

namespace utility
{

namespace
{

constexpr std::u16string_view CLASSES = u"Software\\Classes";
constexpr std::u16string_view CURRENT_CONFIG =
    u"System\\CurrentControlSet\\Hardware Profiles\\Current";

std::string Folded(std::u16string_view path)
{
    std::string folded;
    return AppendFoldedPath(folded, path) ? folded : std::string();
}

bool IsRoot(HKEY key)
{
    return (reinterpret_cast<std::uintptr_t>(key) & ~std::uintptr_t{0xF}) == 0x80000000;
}

LONG ResolveRoot(HKEY root, KeyRecord& record)
{
    if (root == HKEY_CURRENT_USER)
        record.m_Place = {&GetUserHive(), {}};
    else if (root == HKEY_LOCAL_MACHINE)
        record.m_Place = {&GetMachineHive(), {}};
    else if (root == HKEY_CURRENT_CONFIG)
        record.m_Place = {&GetMachineHive(), Folded(CURRENT_CONFIG)};
    else if (root == HKEY_CLASSES_ROOT)
    {
        record.m_Place = {&GetUserHive(), Folded(CLASSES)};
        record.m_Below = {&GetMachineHive(), Folded(CLASSES)};
    }
    else
        return ERROR_INVALID_HANDLE;
    return ERROR_SUCCESS;
}

} // namespace

LONG ResolveKey(HKEY key, LPCWSTR path, KeyRecord& record)
{
    if (!key)
        return ERROR_INVALID_HANDLE;
    if (!IsRoot(key))
        record = *key;
    else if (const LONG code = ResolveRoot(key, record); code != ERROR_SUCCESS)
        return code;
    if (!AppendFoldedPath(record.m_Place.m_Path, ViewOf(path)))
        return ERROR_INVALID_PARAMETER;
    if (record.m_Below && !AppendFoldedPath(record.m_Below->m_Path, ViewOf(path)))
        return ERROR_INVALID_PARAMETER;
    return ERROR_SUCCESS;
}

std::u16string_view GetRootPath(HKEY key)
{
    if (key == HKEY_CLASSES_ROOT)
        return CLASSES;
    return key == HKEY_CURRENT_CONFIG ? CURRENT_CONFIG : std::u16string_view();
}

LONG UseKey(HKEY key, REGSAM rights, KeyRecord& scratch, const KeyRecord*& record)
{
    if (!key)
        return ERROR_INVALID_HANDLE;
    if (IsRoot(key))
    {
        record = &scratch;
        return ResolveRoot(key, scratch);
    }
    record = key;
    return (key->m_Access & rights) == rights ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

} // namespace utility
