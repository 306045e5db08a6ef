#include "files/encoded/StdioFileEx.h"
#include "files/encoded/TextEscapes.h"
#include "platform/base/Encoding.h"
#include "platform/base/UnitSearch.h"

#include <cstring>

namespace utility
{

namespace
{

std::u16string_view ViewOf(const char16_t* text)
{
    return text != nullptr ? std::u16string_view(text, units::Length(text)) : std::u16string_view();
}

std::string_view ViewOf(const char* text)
{
    return text != nullptr ? std::string_view(text) : std::string_view();
}

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

/// The character at the start of a text: one unit, or a pair.
std::u16string_view FirstCharacter(std::u16string_view text)
{
    const bool isPair =
        IsHighSurrogate(text[0]) && text.size() > 1 && text[1] >= 0xDC00 && text[1] <= 0xDFFF;
    return text.substr(0, isPair ? 2 : 1);
}

std::string ToAscii(std::u16string_view text, const CString& lead)
{
    std::string bytes;
    for (const char16_t unit : text)
    {
        if (unit < 0x80)
            bytes += static_cast<char>(unit);
        else
            AppendEscape(bytes, unit, lead);
    }
    return bytes;
}

/// Converts character by character as long as the bytes and a terminator fit.
template <typename TConvert>
int FillWithCharacters(std::u16string_view text, char* buffer, int size, const TConvert& convert)
{
    if (size <= 0)
        return 0;
    const std::size_t room = static_cast<std::size_t>(size) - 1;
    std::size_t used = 0;
    while (!text.empty())
    {
        const std::u16string_view character = FirstCharacter(text);
        const std::string bytes = convert(character);
        if (bytes.size() > room - used)
            break;
        std::memcpy(buffer + used, bytes.data(), bytes.size());
        used += bytes.size();
        text.remove_prefix(character.size());
    }
    buffer[used] = 0;
    return static_cast<int>(used);
}

template <typename TCharacter>
TCharacter* ChooseBuffer(TCharacter* buffer, int& size, int required,
                         std::unique_ptr<TCharacter[]>& holder)
{
    if (required <= size)
        return buffer;
    size = required;
    holder = std::make_unique<TCharacter[]>(static_cast<std::size_t>(required));
    return holder.get();
}

} // namespace

int CStdioFileEx::GetAsciiStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                                  const CString& lead)
{
    return FillWithCharacters(ViewOf(text), buffer, size,
                              [&lead](std::u16string_view character)
                              { return ToAscii(character, lead); });
}

int CStdioFileEx::GetMultiByteStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                                      UINT codePage)
{
    return FillWithCharacters(ViewOf(text), buffer, size,
                              [codePage](std::u16string_view character)
                              { return ToBytes(codePage, character); });
}

int CStdioFileEx::GetUnicodeStringFromMultiByteString(const char* text, char16_t* buffer, int size,
                                                      UINT codePage)
{
    if (size <= 0)
        return 0;
    const CString whole = FromBytes(codePage, ViewOf(text));
    std::u16string_view kept = whole.View().substr(0, static_cast<std::size_t>(size) - 1);
    if (kept.size() < whole.View().size() && !kept.empty() && IsHighSurrogate(kept.back()))
        kept.remove_suffix(1);
    std::memcpy(buffer, kept.data(), kept.size() * sizeof(char16_t));
    buffer[kept.size()] = 0;
    return static_cast<int>(kept.size());
}

int CStdioFileEx::GetRequiredAsciiLengthForUnicodeString(const char16_t* text, const CString& lead)
{
    return static_cast<int>(ToAscii(ViewOf(text), lead).size()) + 1;
}

int CStdioFileEx::GetRequiredMultiByteLengthForUnicodeString(const char16_t* text, UINT codePage)
{
    return static_cast<int>(ToBytes(codePage, ViewOf(text)).size()) + 1;
}

int CStdioFileEx::GetRequiredUnicodeLengthFromMultiByteString(const char* text, UINT codePage)
{
    return FromBytes(codePage, ViewOf(text)).GetLength() + 1;
}

char* CStdioFileEx::GetNewAsciiStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                                       std::unique_ptr<char[]>& holder,
                                                       const CString& lead)
{
    char* chosen =
        ChooseBuffer(buffer, size, GetRequiredAsciiLengthForUnicodeString(text, lead), holder);
    GetAsciiStringFromUnicodeString(text, chosen, size, lead);
    return chosen;
}

char* CStdioFileEx::GetNewMultiByteStringFromUnicodeString(const char16_t* text, char* buffer,
                                                           int size,
                                                           std::unique_ptr<char[]>& holder,
                                                           UINT codePage)
{
    char* chosen = ChooseBuffer(buffer, size,
                                GetRequiredMultiByteLengthForUnicodeString(text, codePage), holder);
    GetMultiByteStringFromUnicodeString(text, chosen, size, codePage);
    return chosen;
}

char16_t* CStdioFileEx::GetNewUnicodeStringFromMultiByteString(const char* text, char16_t* buffer,
                                                               int size,
                                                               std::unique_ptr<char16_t[]>& holder,
                                                               UINT codePage)
{
    char16_t* chosen = ChooseBuffer(
        buffer, size, GetRequiredUnicodeLengthFromMultiByteString(text, codePage), holder);
    GetUnicodeStringFromMultiByteString(text, chosen, size, codePage);
    return chosen;
}

} // namespace utility
