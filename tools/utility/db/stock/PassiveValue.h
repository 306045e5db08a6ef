#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// A nominal value of a series: `m_Digits` (100 to 999) hundredths of ten to the power of
/// `m_Decade`, in the smallest unit that such parts are counted in.
struct CNominalValue
{
    int m_Digits = 100;
    int m_Decade = 0;
};

/// The letters of a kind for each three decades above the smallest unit, and its sign: "pnu" and
/// "F".
struct CValueLetters
{
    const char16_t* m_Prefixes;
    const char16_t* m_Unit; // written behind the prefix by some; empty for resistors
};

/// The value with its letter in place of the point, in the one way that serves in names: 4k7, 10k,
/// 4k75.
CString FormatValueCode(const CNominalValue& value, const CValueLetters& letters);

/// The ways in which people write the value: 4k7, 4.7K, 4700; 100nF, 100n, 0.1u. Each reads back as
/// the value.
std::vector<CString> FormatValueWays(const CNominalValue& value, const CValueLetters& letters);

} // namespace utility
