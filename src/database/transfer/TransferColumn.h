#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstdint>

namespace utility
{

/// What a column holds, whatever its source calls that.
enum class ETransferType : BYTE
{
    Bit,
    Small,   // whole numbers of 16 bits
    Integer, // of 32
    Big,     // of 64
    Decimal,
    Single,
    Real,
    Date,
    Time,
    Timestamp,
    Text,
    Binary
};

/// A column on its way from one source to another.
struct CTransferColumn
{
    CString Name;
    ETransferType Type = ETransferType::Text;
    std::uint32_t Length = 0; // characters of a text, digits of a decimal; 0 for any number
    short Scale = 0;          // digits behind the point
    bool IsNullable = true;
};

inline bool IsWholeNumber(ETransferType type)
{
    return type <= ETransferType::Big;
}

inline bool IsReal(ETransferType type)
{
    return type == ETransferType::Single || type == ETransferType::Real;
}

inline bool IsDateOrTime(ETransferType type)
{
    return type >= ETransferType::Date && type <= ETransferType::Timestamp;
}

} // namespace utility
