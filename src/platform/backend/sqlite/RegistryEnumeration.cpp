#include "platform/backend/sqlite/HivePath.h"
#include "platform/backend/sqlite/KeyHandle.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/RegistryHive.h"

#include <algorithm>

namespace utility
{

namespace
{

LONG DeliverText(const std::string& text, char16_t* buffer, DWORD* length)
{
    if (!length)
        return buffer ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
    const CString units = FromUtf8(text);
    const auto needed = static_cast<DWORD>(units.GetLength());
    const DWORD room = *length;
    *length = needed;
    if (!buffer)
        return ERROR_SUCCESS;
    if (room <= needed)
        return ERROR_MORE_DATA;
    std::copy_n(units.GetString(), needed + 1, buffer);
    return ERROR_SUCCESS;
}

struct CKeyEntry
{
    std::string m_Name;
    std::string m_Class;
};

struct CValueEntry
{
    std::string m_Name;
    CHiveValue m_Value;
};

LONG GetEntry(const CKeyPlace& place, std::int64_t index, CKeyEntry& entry)
{
    return place.m_File->Read(
        [&](CHiveConnection& connection)
        { return connection.GetKeyAt(place.m_Path, index, entry.m_Name, entry.m_Class); });
}

LONG GetEntry(const CKeyPlace& place, std::int64_t index, CValueEntry& entry)
{
    return place.m_File->Read(
        [&](CHiveConnection& connection)
        { return connection.GetValueAt(place.m_Path, index, entry.m_Name, entry.m_Value); });
}

bool IsIn(const CKeyPlace& place, const CKeyEntry& entry)
{
    const std::string path = place.m_Path + "\\" + entry.m_Name;
    std::string folded;
    return FoldName(FromUtf8(path).View(), folded) &&
           place.m_File->FindKey(folded) == ERROR_SUCCESS;
}

bool IsIn(const CKeyPlace& place, const CValueEntry& entry)
{
    std::string folded;
    return FoldName(FromUtf8(entry.m_Name).View(), folded) &&
           place.m_File->QueryValue(place.m_Path, folded, nullptr, nullptr, nullptr) ==
               ERROR_SUCCESS;
}

bool IsPastEnd(LONG code)
{
    return code == ERROR_NO_MORE_ITEMS || code == ERROR_FILE_NOT_FOUND;
}

/// The user's entries first, then those that the machine alone has. Only the classes root is laid
/// over another, and such keys are small: each call walks.
template <typename TEntry>
LONG GetLayeredEntry(const KeyRecord& record, DWORD index, TEntry& entry)
{
    LONG code = GetEntry(record.m_Place, index, entry);
    if (!record.m_Below)
        return IsPastEnd(code) ? ERROR_NO_MORE_ITEMS : code;
    if (!IsPastEnd(code))
        return code;
    std::int64_t own = 0;
    while (GetEntry(record.m_Place, own, entry) == ERROR_SUCCESS)
        ++own;
    std::int64_t wanted = static_cast<std::int64_t>(index) - own;
    for (std::int64_t at = 0;; ++at)
    {
        code = GetEntry(*record.m_Below, at, entry);
        if (code != ERROR_SUCCESS)
            return IsPastEnd(code) ? ERROR_NO_MORE_ITEMS : code;
        if (!IsIn(record.m_Place, entry) && wanted-- == 0)
            return ERROR_SUCCESS;
    }
}

void RaiseTo(DWORD& longest, const std::string& text)
{
    longest = std::max(longest, static_cast<DWORD>(FromUtf8(text).GetLength()));
}

void Deliver(DWORD* output, DWORD value)
{
    if (output)
        *output = value;
}

} // namespace

LONG RegEnumKeyExW(HKEY key, DWORD index, char16_t* name, DWORD* nameLength, DWORD*,
                   char16_t* className, DWORD* classLength)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    CKeyEntry entry;
    LONG code = UseKey(key, MAY_LIST, scratch, record);
    if (code == ERROR_SUCCESS)
        code = GetLayeredEntry(*record, index, entry);
    if (code == ERROR_SUCCESS)
        code = DeliverText(entry.m_Name, name, nameLength);
    if (code == ERROR_SUCCESS)
        code = DeliverText(entry.m_Class, className, classLength);
    return code;
}

LONG RegEnumValueW(HKEY key, DWORD index, char16_t* name, DWORD* nameLength, DWORD*, DWORD* type,
                   BYTE* data, DWORD* size)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    CValueEntry entry;
    LONG code = UseKey(key, MAY_QUERY, scratch, record);
    if (code == ERROR_SUCCESS)
        code = GetLayeredEntry(*record, index, entry);
    if (code == ERROR_SUCCESS)
        code = DeliverText(entry.m_Name, name, nameLength);
    if (code == ERROR_SUCCESS)
        code = DeliverValue(entry.m_Value, type, data, size);
    return code;
}

LONG RegQueryInfoKeyW(HKEY key, DWORD* keys, DWORD* maxKeyLength, DWORD* maxClassLength,
                      DWORD* values, DWORD* maxNameLength, DWORD* maxValueLength)
{
    KeyRecord scratch;
    const KeyRecord* record = nullptr;
    LONG code = UseKey(key, MAY_QUERY, scratch, record);

    DWORD keyCount = 0, longestKey = 0, longestClass = 0;
    CKeyEntry keyEntry;
    for (; code == ERROR_SUCCESS; code = GetLayeredEntry(*record, keyCount++, keyEntry))
    {
        RaiseTo(longestKey, keyEntry.m_Name);
        RaiseTo(longestClass, keyEntry.m_Class);
    }
    if (code != ERROR_NO_MORE_ITEMS)
        return code;

    DWORD valueCount = 0, longestName = 0, longestValue = 0;
    CValueEntry valueEntry;
    for (code = ERROR_SUCCESS; code == ERROR_SUCCESS;
         code = GetLayeredEntry(*record, valueCount++, valueEntry))
    {
        RaiseTo(longestName, valueEntry.m_Name);
        longestValue = std::max(longestValue, static_cast<DWORD>(valueEntry.m_Value.m_Data.size()));
    }
    if (code != ERROR_NO_MORE_ITEMS)
        return code;

    Deliver(keys, keyCount - 1);
    Deliver(maxKeyLength, longestKey);
    Deliver(maxClassLength, longestClass);
    Deliver(values, valueCount - 1);
    Deliver(maxNameLength, longestName);
    Deliver(maxValueLength, longestValue);
    return ERROR_SUCCESS;
}

} // namespace utility
