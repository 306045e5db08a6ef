#include "text/AsciiText.h"

#include <iterator>
#include <string>

namespace utility
{

namespace
{

constexpr char16_t FIRST_NON_ASCII = 128;
constexpr int FIRST_LETTER = 192;

// By low bytes 192 to 255: the letters of the western page without their accents.
constexpr char16_t PLAIN_LETTERS[] =
    u"AAAAAAACEEEEIIIIDNOOOOO_OUUUUYYsaaaaaaaceeeeiiiidnooooo_ouuuuyyy";
static_assert(std::size(PLAIN_LETTERS) == 64 + 1);

char16_t PlainUnit(char16_t unit)
{
    const int low = unit & 0xFF;
    return low < FIRST_LETTER ? u'_' : PLAIN_LETTERS[low - FIRST_LETTER];
}

} // namespace

bool StringToAscii(CString& text)
{
    if (IsAsciiString(text))
        return false;

    std::u16string plain(text.View());
    for (char16_t& unit : plain)
    {
        if (unit >= FIRST_NON_ASCII)
            unit = PlainUnit(unit);
    }
    text = std::u16string_view(plain);
    return true;
}

bool IsAsciiString(const CString& text)
{
    return FirstNonAsciiChar(text) < 0;
}

int FirstNonAsciiChar(const CString& text)
{
    return NextNonAsciiChar(text, -1);
}

int NextNonAsciiChar(const CString& text, int index)
{
    const std::u16string_view units = text.View();
    for (std::size_t i = index < 0 ? 0 : static_cast<std::size_t>(index) + 1; i < units.size(); ++i)
    {
        if (units[i] >= FIRST_NON_ASCII)
            return static_cast<int>(i);
    }
    return -1;
}

void ToEncodedAscii(CString& text)
{
    if (IsAsciiString(text))
        return;

    constexpr char16_t DIGITS[] = u"0123456789ABCDEF";
    std::u16string encoded;
    for (const char16_t unit : text.View())
    {
        if (unit < FIRST_NON_ASCII)
        {
            encoded += unit;
            continue;
        }
        encoded += u"U+";
        for (int shift = 12; shift >= 0; shift -= 4)
            encoded += DIGITS[unit >> shift & 0xF];
    }
    text = std::u16string_view(encoded);
}

} // namespace utility
