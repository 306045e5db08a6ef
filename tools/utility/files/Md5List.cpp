#include "utility/files/Md5List.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t DIGEST_LENGTH = 32; // hexadecimal digits
constexpr std::string_view ESCAPED = "\\\n\r";
constexpr std::string_view LETTERS = "\\nr"; // what stands behind a backslash for each of these

/// False if a backslash is followed by none of its letters.
bool Unescape(std::string_view text, std::string& name)
{
    name.clear();
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] != '\\')
        {
            name += text[i];
            continue;
        }
        const std::size_t letter =
            ++i < text.size() ? LETTERS.find(text[i]) : std::string_view::npos;
        if (letter == std::string_view::npos)
            return false;
        name += ESCAPED[letter];
    }
    return true;
}

} // namespace

bool ParseMd5Line(std::string_view line, CMd5Line& parsed)
{
    const bool isEscaped = line.starts_with('\\');
    if (isEscaped)
        line.remove_prefix(1);
    if (line.size() < DIGEST_LENGTH + 3 || line[DIGEST_LENGTH] != ' ' ||
        (line[DIGEST_LENGTH + 1] != ' ' && line[DIGEST_LENGTH + 1] != '*'))
        return false;
    const std::string_view digest = line.substr(0, DIGEST_LENGTH);
    if (!std::all_of(digest.begin(), digest.end(),
                     [](char digit)
                     { return HexDigitValue(static_cast<unsigned char>(digit)) >= 0; }))
        return false;
    parsed.m_Digest = FromUtf8(digest);
    const std::string_view name = line.substr(DIGEST_LENGTH + 2);
    if (isEscaped)
        return Unescape(name, parsed.m_Name);
    parsed.m_Name = name;
    return true;
}

std::string FormatMd5Line(const CMd5Line& line)
{
    std::string name;
    for (const char byte : line.m_Name)
    {
        const std::size_t place = ESCAPED.find(byte);
        if (place == std::string_view::npos)
            name += byte;
        else
            name += {'\\', LETTERS[place]};
    }
    const char* const mark = name == line.m_Name ? "" : "\\";
    return mark + ToUtf8(line.m_Digest.View()) + "  " + name;
}

} // namespace utility
