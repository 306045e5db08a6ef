#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/time/TimestampStruct.h"

#include <cstdint>
#include <string>

namespace utility
{

class CLongBinary;

// What a CDBVariant holds; the numbers are laid down
constexpr DWORD DBVT_NULL = 0;
constexpr DWORD DBVT_BOOL = 1;
constexpr DWORD DBVT_UCHAR = 2;
constexpr DWORD DBVT_SHORT = 3;
constexpr DWORD DBVT_LONG = 4;
constexpr DWORD DBVT_SINGLE = 5;
constexpr DWORD DBVT_DOUBLE = 6;
constexpr DWORD DBVT_DATE = 7;
constexpr DWORD DBVT_STRING = 8;
constexpr DWORD DBVT_BINARY = 9;
constexpr DWORD DBVT_ASTRING = 10;
constexpr DWORD DBVT_WSTRING = 11;

/// A value of any column type: the type's number and one member of a union.
///
/// Owns what the last five members point at; who changes `m_dwType` by hand calls Clear first and
/// gives such a type its object, made by `new`. Not copied, since each derived class has its own
/// rule for binaries.
class UTILITY_CORE_API CDBVariant
{
public:
    CDBVariant() = default;
    ~CDBVariant();
    CDBVariant(const CDBVariant&) = delete;
    CDBVariant& operator=(const CDBVariant&) = delete;

    /// Deletes what is owned; the type is DBVT_NULL afterwards.
    void Clear();

    /// Clears, then takes the type with a fresh value: zero, an empty text, an empty block. An
    /// unknown type is DBVT_NULL.
    void SetType(DWORD type);

    DWORD m_dwType = DBVT_NULL;

    union
    {
        std::int64_t m_nothing = 0;
        BOOL m_boolVal;
        BYTE m_chVal;
        std::int16_t m_iVal;
        LONG m_lVal;
        float m_fltVal;
        double m_dblVal;
        TIMESTAMP_STRUCT* m_pdate;
        CString* m_pstring;
        CLongBinary* m_pbinary;
        std::string* m_pstringA; // UTF-8
        CString* m_pstringW;
    };
};

} // namespace utility
