#include "platform/system/window/LiveText.h"

#include "platform/base/Encoding.h"

namespace utility
{

namespace
{

constexpr char ESCAPE = '%';
constexpr std::size_t ESCAPE_LENGTH = 3; // the mark and two digits

bool NeedsEscape(char byte)
{
    constexpr unsigned char FIRST_PRINTABLE = 0x20;
    constexpr unsigned char DELETE_CHARACTER = 0x7F;
    const auto value = static_cast<unsigned char>(byte);
    return value < FIRST_PRINTABLE || value == DELETE_CHARACTER || byte == ESCAPE;
}

} // namespace

std::string EscapeLiveText(const CString& text)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string escaped;
    for (const char byte : ToUtf8(text.View()))
    {
        if (!NeedsEscape(byte))
        {
            escaped += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        escaped += {ESCAPE, DIGITS[value >> 4], DIGITS[value & 0xF]};
    }
    return escaped;
}

CString UnescapeLiveText(std::string_view text)
{
    constexpr int HEXADECIMAL = 16;
    std::string bytes;
    while (!text.empty())
    {
        unsigned char value = 0;
        const char* digits = text.data() + 1;
        const bool isEscape =
            text.size() >= ESCAPE_LENGTH && text[0] == ESCAPE &&
            std::from_chars(digits, digits + 2, value, HEXADECIMAL).ptr == digits + 2;
        bytes += isEscape ? static_cast<char>(value) : text[0];
        text.remove_prefix(isEscape ? ESCAPE_LENGTH : 1);
    }
    return FromUtf8(bytes);
}

} // namespace utility
