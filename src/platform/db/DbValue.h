#pragma once

#include "platform/base/Types.h"
#include "platform/base/time/TimestampStruct.h"

#include <cstdint>
#include <string_view>

namespace utility
{

/// How the values of a result column are kept between driver and field.
enum class EValueKind : BYTE
{
    None, // a type that nobody reads: always NULL
    Bit,
    Integer, // up to 32 bits in the source, 64 here, so that a driver cannot wrap what does not fit
    Single,
    Real,
    Date,
    Text, // UTF-8; also large and exact numbers
    Binary
};

/// The kind for an ODBC column type in the classic numbering.
EValueKind ValueKindOf(short sqlType);

/// One value on its way; refers to texts and bytes of whoever made it.
struct CDbValue
{
    EValueKind Kind = EValueKind::None;
    bool IsNull = true;
    bool IsCut = false; // the text was longer than its column's limit, or NULL is not what is there
    union
    {
        std::int64_t Integer = 0; // Bit, Integer
        double Real;              // Single, Real
        TIMESTAMP_STRUCT Date;
    };
    std::string_view Bytes; // Text, Binary
};

} // namespace utility
