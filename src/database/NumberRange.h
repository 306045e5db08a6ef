#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

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

/// A number of any kind as another kind: whole ones keep their low bits, real ones are cut and held
/// as above.
template <typename TTarget, typename TSource>
TTarget ConvertNumber(TSource value)
{
    if constexpr (std::is_floating_point_v<TSource> && std::is_integral_v<TTarget>)
        return CutToWhole<TTarget>(value);
    else if constexpr (std::is_same_v<TSource, double> && std::is_same_v<TTarget, float>)
        return NarrowToFloat(value);
    else
        return static_cast<TTarget>(value);
}

} // namespace utility
