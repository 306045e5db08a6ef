#include "text/match/StringCompare.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace utility
{

namespace
{

bool IsSeparator(char16_t unit)
{
    return unit == u'.' || unit == u',';
}

constexpr std::uint32_t ComputeRank(char16_t unit)
{
    constexpr std::uint32_t WORD = 0x20000; // letters and digits stand behind everything else
    constexpr std::uint32_t OTHER = 0x10000;
    if (unit == u'<')
        return 0; // "<None>" and its like stand first
    return (IsAlnum(unit) ? WORD : OTHER) + ToUpper(unit);
}

constexpr std::array<std::uint32_t, 256> RANKS = []
{
    std::array<std::uint32_t, 256> ranks{};
    for (std::size_t unit = 0; unit < ranks.size(); ++unit)
        ranks[unit] = ComputeRank(static_cast<char16_t>(unit));
    return ranks;
}();

/// The place of a unit in the order, case apart.
int Rank(char16_t unit)
{
    return static_cast<int>(unit < RANKS.size() ? RANKS[unit] : ComputeRank(unit));
}

/// Order of two runs of digits, both of which begin here; the longer run is the larger. Both
/// positions end behind the shorter run.
int CompareRuns(const char16_t*& left, const char16_t*& right)
{
    while (IsDigit(*left) && *left == *right)
    {
        ++left;
        ++right;
    }
    if (!IsDigit(*left) || !IsDigit(*right))
        return IsDigit(*left) - IsDigit(*right);

    const int firstDifference = *left - *right;
    do
    {
        ++left;
        ++right;
    } while (IsDigit(*left) && IsDigit(*right));
    const int longer = IsDigit(*left) - IsDigit(*right);
    return longer != 0 ? longer : firstDifference;
}

/// Order of what follows two equal runs, as fractions; 0 if that does not tell. Behind a common
/// separator the common digits are stepped over.
int CompareFractions(const char16_t*& left, const char16_t*& right)
{
    if (IsSeparator(*left) && *left == *right)
    {
        do
        {
            ++left;
            ++right;
        } while (IsDigit(*left) && *left == *right);
        return IsDigit(*left) && IsDigit(*right) ? *left - *right : 0;
    }
    // Of "." against "," the comma goes, so that the order turns round with its arguments.
    if (IsSeparator(*left) && (!IsSeparator(*right) || *left == u','))
        ++left;
    else if (IsSeparator(*right))
        ++right;
    return 0;
}

const char16_t* SkipZeros(const char16_t* text)
{
    while (*text == u'0')
        ++text;
    return text;
}

int Sign(std::ptrdiff_t value)
{
    return (value > 0) - (value < 0);
}

} // namespace

int StringCompare(const char16_t* left, const char16_t* right, bool caseSensitive,
                  bool numbersByRun, bool numbersByValue)
{
    const char16_t* const leftStart = left ? left : u"";
    const char16_t* const rightStart = right ? right : u"";
    left = leftStart;
    right = rightStart;
    for (;;)
    {
        while (*left == *right && *left != 0 && !(numbersByRun && IsDigit(*left)))
        {
            ++left;
            ++right;
        }
        if (*left == 0 || *right == 0)
            break;

        if (!numbersByRun || !IsDigit(*left) || !IsDigit(*right))
        {
            int order = Rank(*left) - Rank(*right);
            if (order == 0 && caseSensitive)
                order = *left - *right;
            if (order != 0)
                return Sign(order);
            ++left;
            ++right;
            continue;
        }

        int order = CompareRuns(left, right);
        if (order != 0)
            return Sign(order);
        if (!numbersByValue)
            continue;
        order = CompareFractions(left, right);
        if (order != 0)
            return Sign(order);
        left = SkipZeros(left);
        right = SkipZeros(right);
        if (IsDigit(*left) || IsDigit(*right))
            return IsDigit(*left) ? 1 : -1;
    }
    if (*left != 0 || *right != 0)
        return *left != 0 ? 1 : -1;
    return numbersByValue ? Sign((left - leftStart) - (right - rightStart)) : 0;
}

} // namespace utility
