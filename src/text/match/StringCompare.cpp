#include "text/match/StringCompare.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

namespace utility
{

namespace
{

bool IsSeparator(char16_t unit)
{
    return unit == u'.' || unit == u',';
}

/// Order of two units that are no equal pair, brackets and case apart from `caseSensitive`.
int CompareUnit(char16_t left, char16_t right, bool caseSensitive)
{
    if (left == u'<' || right == u'<')
        return left == u'<' ? -1 : 1; // "<None>" and its like stand first

    const bool leftIsWord = IsAlnum(left);
    if (leftIsWord != IsAlnum(right))
        return leftIsWord ? 1 : -1;

    const int difference = ToUpper(left) - ToUpper(right);
    return difference != 0 || !caseSensitive ? difference : left - right;
}

/// Order of two runs of digits, both of which begin here; the longer run is the larger. Both
/// positions end behind the shorter run.
int CompareRuns(const char16_t*& left, const char16_t*& right)
{
    int result = 0;
    while (IsDigit(*left) && IsDigit(*right))
    {
        if (result == 0)
            result = *left - *right;
        ++left;
        ++right;
    }
    if (IsDigit(*left))
        return 1;
    return IsDigit(*right) ? -1 : result;
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
            const int order = CompareUnit(*left, *right, caseSensitive);
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
