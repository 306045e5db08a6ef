#include "text/match/MatchingString.h"

#include "platform/base/String.h"
#include "text/match/WildcardChars.h"

namespace utility
{

namespace
{

/// The series' text for `index`; false if a single character would have to hold two digits.
bool Generate(const char16_t* pattern, int index, CString& result)
{
    CString digits;
    digits.Format(u"%d", index);
    int alternative = 0;
    for (result.Empty(); *pattern != 0; ++pattern)
    {
        if (*pattern == GetWildOrChar())
        {
            if (++alternative == index)
                return true;
            result.Empty();
        }
        else if (*pattern == u'?' && index > 9)
        {
            return false;
        }
        else if (*pattern == u'?' || *pattern == GetWildAnyChar())
        {
            result += digits;
        }
        else
        {
            result += *pattern;
        }
    }
    return true;
}

} // namespace

bool GenerateNextMatchingString(const char16_t* pattern, int& index, CString& result)
{
    if (!pattern || *pattern == 0)
        return false;

    index = std::max(index, 1);
    CString text; // apart from the result, which may hold the pattern
    const bool generated = Generate(pattern, index, text);
    result = text;
    if (index < std::numeric_limits<int>::max())
        ++index;
    return generated;
}

} // namespace utility
