#pragma once

#include "platform/base/Types.h"

#include <span>
#include <vector>

struct sqlite3_stmt;

namespace utility
{

/// A value as the store's callers see it: a type number and bytes.
struct CHiveValue
{
    DWORD m_Type = 0;
    std::vector<BYTE> m_Data;
};

/// Hands a value to a caller's buffer by the rules of `RegQueryValueExW`.
LONG DeliverValue(const CHiveValue& value, DWORD* type, BYTE* data, DWORD* size);

/// Data goes into the table in a form that the database's own shell shows: sound text with its one
/// terminator as text, whole numbers as integers, all else as bytes. Reading gives the very bytes
/// back.
void BindData(sqlite3_stmt* statement, int place, DWORD type, std::span<const BYTE> data);
std::vector<BYTE> ReadData(sqlite3_stmt* statement, int column, DWORD type);

} // namespace utility
