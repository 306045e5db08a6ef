#pragma once

#include "database/DBField.h"

#include <memory>
#include <string>
#include <vector>

namespace utility
{

/// The types of a column in the order in which the tables of the tests name them.
constexpr DWORD COLUMN_TYPES[] = {DBVT_NULL,   DBVT_BOOL,   DBVT_UCHAR, DBVT_SHORT,  DBVT_LONG,
                                  DBVT_SINGLE, DBVT_DOUBLE, DBVT_DATE,  DBVT_STRING, DBVT_BINARY};
constexpr std::size_t COLUMN_TYPE_COUNT = std::size(COLUMN_TYPES);

/// Type and value as they stand in the field, such as "LONG 12", "DATE 2024-05-06 07:08:09+0" or
/// "NULL".
std::string Show(const CDBVariant& value);
std::string Show(const TIMESTAMP_STRUCT& time);
/// "null", "invalid" or "2024-05-06 07:08:09".
std::string Show(const COleDateTime& date);

/// One conversion of a field, by the name of its operation.
struct CReading
{
    const char* m_Name;
    std::string m_Value; // numbers in 17 digits, texts in quotes
};

/// What a field reads as by each conversion but that to a binary: ten of them.
std::vector<CReading> Readings(const CDBField& field);

/// A field of a type with a value that no assignment of the tests gives:
/// 0, 'x', 77, 77, 77.5, 77.5, 2001-02-03 04:05:06+7, "old" and the bytes 1, 2, 3.
std::unique_ptr<CDBField> MakeField(DWORD type);

/// A block that the receiver owns.
HGLOBAL MakeBlock(const std::string& bytes);

} // namespace utility
