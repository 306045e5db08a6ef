#include "text/match/WildcardChars.h"

namespace utility
{

bool IsWildString(const char16_t* text)
{
    for (; text && *text != 0; ++text)
    {
        if (*text == u'*' || *text == u'?' || *text == GetWildOrChar() ||
            *text == GetWildFormatChar())
            return true;
    }
    return false;
}

int NextOrString(const char16_t* text)
{
    if (!text || *text == 0)
        return 0;

    int length = 1;
    while (text[length] != 0 && text[length] != GetWildOrChar())
        ++length;
    return length;
}

} // namespace utility
