#include "platform/system/RegistryHive.h"

#include "platform/backend/sqlite/HivePath.h"
#include "platform/backend/sqlite/KeyHandle.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"

namespace utility
{

namespace
{

// A value beyond this is no setting; the database's own limit is a thousand megabytes.
constexpr DWORD DATA_LIMIT = 64 * 1024 * 1024;

LONG FindKey(const KeyRecord& record)
{
    const LONG code = record.m_Place.m_File->FindKey(record.m_Place.m_Path);
    if (code != ERROR_FILE_NOT_FOUND || !record.m_Below)
        return code;
    return record.m_Below->m_File->FindKey(record.m_Below->m_Path);
}

HKEY MakeHandle(KeyRecord&& record, REGSAM access)
{
    record.m_Access = access;
    return new KeyRecord(std::move(record));
}

} // namespace

LONG RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD, REGSAM access, HKEY* result)
{
    KeyRecord record;
    LONG code = ResolveKey(key, path, record);
    if (code == ERROR_SUCCESS)
        code = FindKey(record);
    if (code == ERROR_SUCCESS)
        *result = MakeHandle(std::move(record), access);
    return code;
}

LONG RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD, LPCWSTR className, DWORD, REGSAM access, void*,
                     HKEY* result, DWORD* disposition)
{
    constexpr DWORD MADE = 1;
    constexpr DWORD WAS_THERE = 2;

    KeyRecord record;
    std::vector<std::string> names;
    KeyRecord base;
    LONG code = ResolveKey(key, nullptr, base);
    if (code == ERROR_SUCCESS)
        code = ResolveKey(key, path, record);
    const std::u16string_view rootPath = GetRootPath(key);
    if (!rootPath.empty())
        base.m_Place.m_Path.clear();
    if (code == ERROR_SUCCESS &&
        (!SplitSpelledPath(rootPath, names) || !SplitSpelledPath(ViewOf(path), names)))
        code = ERROR_INVALID_PARAMETER;
    if (code != ERROR_SUCCESS)
        return code;

    bool made = false;
    CHiveFile& file = *record.m_Place.m_File;
    code = file.FindKey(record.m_Place.m_Path);
    if (code == ERROR_FILE_NOT_FOUND)
    {
        const std::string spelledClass = ToUtf8(ViewOf(className));
        code = file.Change(
            [&](CHiveConnection& connection)
            { return connection.MakeKey(base.m_Place.m_Path, names, spelledClass, made); });
    }
    if (code != ERROR_SUCCESS)
        return code;
    if (disposition)
        *disposition = made ? MADE : WAS_THERE;
    *result = MakeHandle(std::move(record), access);
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY key)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    const LONG code = UseKey(key, 0, scratch, record);
    if (code == ERROR_SUCCESS && record != &scratch)
        delete record;
    return code;
}

LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD*, DWORD* type, BYTE* data, DWORD* size)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    LONG code = UseKey(key, MAY_QUERY, scratch, record);
    std::string folded;
    if (code == ERROR_SUCCESS && !FoldName(ViewOf(name), folded))
        code = ERROR_FILE_NOT_FOUND;
    if (code != ERROR_SUCCESS)
        return code;
    code = record->m_Place.m_File->QueryValue(record->m_Place.m_Path, folded, type, data, size);
    if (code != ERROR_FILE_NOT_FOUND || !record->m_Below)
        return code;
    return record->m_Below->m_File->QueryValue(record->m_Below->m_Path, folded, type, data, size);
}

LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    LONG code = UseKey(key, MAY_SET, scratch, record);
    std::string folded;
    if (code == ERROR_SUCCESS &&
        (!FoldName(ViewOf(name), folded) || size > DATA_LIMIT || (!data && size != 0)))
        code = ERROR_INVALID_PARAMETER;
    if (code != ERROR_SUCCESS)
        return code;
    const std::string spelled = ToUtf8(ViewOf(name));
    return record->m_Place.m_File->Change(
        [&](CHiveConnection& connection) {
            return connection.SetValue(record->m_Place.m_Path, folded, spelled, type, {data, size});
        });
}

LONG RegDeleteValueW(HKEY key, LPCWSTR name)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    LONG code = UseKey(key, MAY_SET, scratch, record);
    std::string folded;
    if (code == ERROR_SUCCESS && !FoldName(ViewOf(name), folded))
        code = ERROR_FILE_NOT_FOUND;
    if (code != ERROR_SUCCESS)
        return code;
    return record->m_Place.m_File->Change(
        [&](CHiveConnection& connection)
        { return connection.DeleteValue(record->m_Place.m_Path, folded); });
}

LONG RegDeleteKeyW(HKEY key, LPCWSTR path)
{
    KeyRecord record;
    LONG code = ResolveKey(key, path, record);
    if (code == ERROR_SUCCESS && record.m_Place.m_Path.empty())
        code = ERROR_ACCESS_DENIED; // a root stays
    if (code == ERROR_SUCCESS)
        code = record.m_Place.m_File->FindKey(record.m_Place.m_Path);
    if (code != ERROR_SUCCESS)
        return code;
    return record.m_Place.m_File->Change([&](CHiveConnection& connection)
                                         { return connection.DeleteKey(record.m_Place.m_Path); });
}

} // namespace utility
