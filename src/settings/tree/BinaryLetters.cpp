#include "settings/tree/BinaryLetters.h"

namespace utility
{

namespace
{

BYTE NibbleOf(char16_t letter)
{
    return static_cast<BYTE>((letter - u'A') & 15);
}

} // namespace

CString BytesToLetters(std::span<const BYTE> bytes)
{
    std::u16string letters;
    letters.reserve(bytes.size() * 2);
    for (const BYTE byte : bytes)
    {
        letters += static_cast<char16_t>(u'A' + (byte & 15));
        letters += static_cast<char16_t>(u'A' + (byte >> 4));
    }
    return CString(std::u16string_view(letters));
}

std::vector<BYTE> LettersToBytes(std::u16string_view letters)
{
    std::vector<BYTE> bytes;
    bytes.reserve(letters.size() / 2);
    for (std::size_t at = 0; at + 1 < letters.size(); at += 2)
        bytes.push_back(
            static_cast<BYTE>(NibbleOf(letters[at]) | (NibbleOf(letters[at + 1]) << 4)));
    return bytes;
}

} // namespace utility
