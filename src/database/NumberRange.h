#pragma once

#include <cmath>
#include <limits>

namespace utility
{

/// A real number as a whole one: cut towards zero, held within the type's range, NaN being 0.
template <typename TWhole>
TWhole CutToWhole(double value)
{
    using CLimits = std::numeric_limits<TWhole>;
    if (std::isnan(value))
        return 0;
    if (value <= static_cast<double>(CLimits::min()))
        return CLimits::min();
    // The upper limit of a 64-bit type rounds up to 2^63 as a double, so it is met with >=.
    if (value >= static_cast<double>(CLimits::max()))
        return CLimits::max();
    return static_cast<TWhole>(value);
}

/// A double as a float; what is too large is an infinity.
inline float NarrowToFloat(double value)
{
    if (std::abs(value) > std::numeric_limits<float>::max() && std::isfinite(value))
        return static_cast<float>(std::copysign(std::numeric_limits<float>::infinity(), value));
    return static_cast<float>(value);
}

} // namespace utility
