#include "text/HtmlEntities.h"

#include "platform/base/CharacterClass.h"
#include "text/HtmlEntityTable.h"

#include <cstdint>

namespace utility
{

namespace
{

constexpr std::uint32_t LAST_CHARACTER = 0x10FFFF;

bool IsCharacter(std::uint32_t code)
{
    return code != 0 && code <= LAST_CHARACTER && (code < 0xD800 || code > 0xDFFF);
}

/// The code behind "&#" up to the ";", and `end` behind that; 0 for what is no character.
std::uint32_t ReadNumber(const char16_t* text, const char16_t*& end)
{
    const bool isHexadecimal = *text == u'x' || *text == u'X';
    if (isHexadecimal)
        ++text;

    const std::uint32_t base = isHexadecimal ? 16 : 10;
    std::uint32_t code = 0;
    for (; isHexadecimal ? HexDigitValue(*text) >= 0 : IsDigit(*text); ++text)
    {
        if (code <= LAST_CHARACTER) // else it is too large already and only its end is sought
            code = code * base + static_cast<std::uint32_t>(HexDigitValue(*text));
    }
    if (*text != u';' || !IsCharacter(code))
        return 0;

    end = text + 1;
    return code;
}

/// As above, for a name behind "&".
std::uint32_t ReadName(const char16_t* text, const char16_t*& end)
{
    std::size_t length = 0;
    while (length <= LONGEST_HTML_ENTITY_NAME && IsAlnum(text[length]))
        ++length;
    if (text[length] != u';')
        return 0;

    const char16_t unit = FindHtmlEntity(std::u16string_view(text, length));
    if (unit != 0)
        end = text + length + 1;
    return unit;
}

char16_t* WriteUtf16(char16_t* out, std::uint32_t code)
{
    if (code < 0x10000)
    {
        *out++ = static_cast<char16_t>(code);
        return out;
    }
    *out++ = static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    *out++ = static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    return out;
}

} // namespace

unsigned int DecodeHtmlEntitiesUtf8(char16_t* out, const char16_t* in)
{
    char16_t* write = out;
    while (*in)
    {
        const char16_t* end = in + 1;
        std::uint32_t code = 0;
        if (*in == u'&')
            code = in[1] == u'#' ? ReadNumber(in + 2, end) : ReadName(in + 1, end);
        // No entity is shorter than what it stands for, so writing never passes reading.
        if (code != 0)
            write = WriteUtf16(write, code);
        else
            *write++ = *in;
        in = end;
    }
    *write = 0;
    return static_cast<unsigned int>(write - out);
}

} // namespace utility
