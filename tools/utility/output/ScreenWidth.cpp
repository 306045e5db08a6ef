#include "utility/output/ScreenWidth.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

namespace utility
{

namespace
{

constexpr char32_t FIRST_WIDE = 0x300; // all below takes one column

/// The widths of all characters, whatever the user's locale is.
locale_t WidthLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

int WidthByLocale(char32_t character)
{
    if (!WidthLocale())
        return 1;
    const locale_t before = uselocale(WidthLocale());
    const int width = wcwidth(static_cast<wchar_t>(character));
    uselocale(before);
    return width < 0 ? 1 : width;
}

/// Takes the first character off a text; half a pair counts as one.
char32_t TakeCharacter(std::u16string_view& text)
{
    const char16_t first = text[0];
    const bool isPair = first >= 0xD800 && first <= 0xDBFF && text.size() > 1 &&
                        text[1] >= 0xDC00 && text[1] <= 0xDFFF;
    const char32_t character =
        isPair ? 0x10000 + ((char32_t{first} - 0xD800) << 10) + (char32_t{text[1]} - 0xDC00)
               : char32_t{first};
    text.remove_prefix(isPair ? 2 : 1);
    return character;
}

} // namespace

int ScreenWidth(char32_t character)
{
    return character < FIRST_WIDE ? 1 : WidthByLocale(character);
}

int ScreenWidth(const CString& text)
{
    int width = 0;
    for (std::u16string_view rest = text.View(); !rest.empty();)
        width += ScreenWidth(TakeCharacter(rest));
    return width;
}

CString CutToWidth(const CString& text, int width)
{
    if (text.GetLength() * 2 <= width || ScreenWidth(text) <= width)
        return text;
    std::size_t end = 0; // of what fits beside the mark
    int taken = 0;
    for (std::u16string_view rest = text.View(); !rest.empty();)
    {
        taken += ScreenWidth(TakeCharacter(rest));
        if (taken > width - 1)
            break;
        end = text.View().size() - rest.size();
    }
    return width > 0 ? CString(text.View().substr(0, end)) + u"…" : CString();
}

std::vector<CString> BreakToWidth(const CString& text, int width)
{
    std::vector<CString> pieces;
    const std::u16string_view whole = text.View();
    std::size_t start = 0; // of the present piece
    int taken = 0;
    for (std::u16string_view rest = whole; !rest.empty();)
    {
        const std::size_t place = whole.size() - rest.size();
        const int next = ScreenWidth(TakeCharacter(rest));
        if (taken + next > width && place > start)
        {
            pieces.emplace_back(whole.substr(start, place - start));
            start = place;
            taken = 0;
        }
        taken += next;
    }
    pieces.emplace_back(whole.substr(start));
    return pieces;
}

CString PadToWidth(const CString& text, int width)
{
    return text + CString(u' ', std::max(0, width - ScreenWidth(text)));
}

} // namespace utility
