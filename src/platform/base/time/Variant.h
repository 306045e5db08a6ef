#pragma once

#include "platform/base/Types.h"

namespace utility
{

constexpr WORD VT_DATE = 7;

/// Carrier of one date: valid only if its kind is `VT_DATE`.
struct VARIANT
{
    WORD vt;
    double date; // days since 30 December 1899
};

} // namespace utility
