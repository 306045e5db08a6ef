#include "platform/base/CaseFold.h"

#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <cstddef>

namespace utility
{

namespace
{

int CompareSizes(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

} // namespace

int CompareUnits(std::u16string_view left, std::u16string_view right)
{
    const std::size_t common = units::CommonLength(left, right);
    if (common == left.size() || common == right.size())
        return CompareSizes(left, right);
    return left[common] < right[common] ? -1 : 1;
}

int CompareNoCase(std::u16string_view left, std::u16string_view right)
{
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        if (left[i] == right[i])
            continue;
        const char16_t leftUnit = ToLower(left[i]);
        const char16_t rightUnit = ToLower(right[i]);
        if (leftUnit != rightUnit)
            return leftUnit < rightUnit ? -1 : 1;
    }
    return CompareSizes(left, right);
}

bool EqualNoCase(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() && CompareNoCase(left, right) == 0;
}

} // namespace utility
