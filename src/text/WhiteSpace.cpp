#include "text/WhiteSpace.h"

#include <string>

namespace utility
{

namespace
{

constexpr std::u16string_view WHITE_SPACE = u" \n\r\t";

} // namespace

bool ContainsWhiteSpace(const CString& text)
{
    return text.View().find_first_of(WHITE_SPACE) != text.View().npos;
}

CString StripWhiteSpace(const CString& text)
{
    std::u16string kept;
    for (const char16_t unit : text.View())
    {
        if (WHITE_SPACE.find(unit) == WHITE_SPACE.npos)
            kept += unit;
    }
    return CString(std::u16string_view(kept));
}

} // namespace utility
