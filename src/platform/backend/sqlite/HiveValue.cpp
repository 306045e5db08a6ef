#include "platform/backend/sqlite/HiveValue.h"

#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/RegistryHive.h"

#include <sqlite3.h>

#include <cstring>
#include <string>

namespace utility
{

namespace
{

/// The bytes as UTF-8, if they are units with one terminator, at the end, that come back from it.
bool ToShownText(std::span<const BYTE> data, std::string& text)
{
    if (data.size() < 2 || data.size() % 2 != 0)
        return false;
    std::u16string units(data.size() / 2, u'\0');
    std::memcpy(units.data(), data.data(), data.size());
    if (units.find(u'\0') != units.size() - 1)
        return false;
    units.pop_back();
    text = ToUtf8(units);
    return FromUtf8(text).View() == units;
}

template <typename T>
std::vector<BYTE> BytesOf(T value)
{
    std::vector<BYTE> bytes(sizeof(value));
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

std::vector<BYTE> BytesOfText(std::string_view text)
{
    const CString units = FromUtf8(text);
    const std::size_t size = (static_cast<std::size_t>(units.GetLength()) + 1) * 2;
    std::vector<BYTE> bytes(size);
    std::memcpy(bytes.data(), units.GetString(), size);
    return bytes;
}

} // namespace

LONG DeliverValue(const CHiveValue& value, DWORD* type, BYTE* data, DWORD* size)
{
    const DWORD needed = static_cast<DWORD>(value.m_Data.size());
    const DWORD room = size ? *size : 0;
    if (type)
        *type = value.m_Type;
    if (size)
        *size = needed;
    if (!data)
        return ERROR_SUCCESS;
    if (!size)
        return ERROR_INVALID_PARAMETER;
    if (room < needed)
        return ERROR_MORE_DATA;
    if (needed != 0)
        std::memcpy(data, value.m_Data.data(), needed);
    return ERROR_SUCCESS;
}

void BindData(sqlite3_stmt* statement, int place, DWORD type, std::span<const BYTE> data)
{
    std::string text;
    if (type == REG_DWORD && data.size() == sizeof(std::uint32_t))
    {
        std::uint32_t number = 0;
        std::memcpy(&number, data.data(), sizeof(number));
        sqlite3_bind_int64(statement, place, number);
    }
    else if (type == REG_QWORD && data.size() == sizeof(std::int64_t))
    {
        std::int64_t number = 0;
        std::memcpy(&number, data.data(), sizeof(number));
        sqlite3_bind_int64(statement, place, number);
    }
    else if (type == REG_SZ && ToShownText(data, text))
        sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8);
    else if (data.empty())
        sqlite3_bind_zeroblob(statement, place, 0);
    else
        sqlite3_bind_blob64(statement, place, data.data(), data.size(), SQLITE_TRANSIENT);
}

std::vector<BYTE> ReadData(sqlite3_stmt* statement, int column, DWORD type)
{
    const auto bytes = [statement, column]
    {
        return static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    };
    switch (sqlite3_column_type(statement, column))
    {
    case SQLITE_INTEGER:
    {
        const std::int64_t number = sqlite3_column_int64(statement, column);
        return type == REG_QWORD ? BytesOf(number) : BytesOf(static_cast<std::uint32_t>(number));
    }
    case SQLITE_TEXT:
    {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return BytesOfText({text, bytes()});
    }
    case SQLITE_BLOB:
    {
        const auto* data = static_cast<const BYTE*>(sqlite3_column_blob(statement, column));
        return {data, data + bytes()};
    }
    default:
        return {};
    }
}

} // namespace utility
