#include "platform/base/Utf8.h"

#include <cstdint>
#include <cstring>

namespace utility::utf8
{

namespace
{

constexpr char32_t REPLACEMENT = 0xFFFD;
constexpr std::ptrdiff_t BLOCK = 8; // units or bytes that are tested and copied at once

/// One character as it stands in the bytes: well-formed, or a bad piece that is replaced.
struct CSequence
{
    char32_t m_Character;
    std::ptrdiff_t m_Length;
    bool m_WellFormed;
};

struct CLeadByte
{
    std::ptrdiff_t m_Length; // 0: cannot begin a sequence
    unsigned char m_LowestSecond;
    unsigned char m_HighestSecond;
};

// The bounds of the second byte keep out overlong forms, surrogates and what lies above 0x10FFFF.
constexpr CLeadByte GetLead(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {3, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {4, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

// The character that begins with this byte of 0x80 or more.
CSequence ReadSequence(const unsigned char* place, const unsigned char* end)
{
    const CLeadByte lead = GetLead(*place);
    if (lead.m_Length == 0 || end - place < 2 || place[1] < lead.m_LowestSecond ||
        place[1] > lead.m_HighestSecond)
        return {REPLACEMENT, 1, false};

    char32_t character = *place & (0x7FU >> lead.m_Length);
    character = character << 6 | (place[1] & 0x3F);
    for (std::ptrdiff_t i = 2; i < lead.m_Length; ++i)
    {
        if (end - place == i || (place[i] & 0xC0) != 0x80)
            return {REPLACEMENT, i, false};
        character = character << 6 | (place[i] & 0x3F);
    }
    return {character, lead.m_Length, true};
}

bool IsAsciiBlock(const unsigned char* place)
{
    std::uint64_t block;
    std::memcpy(&block, place, sizeof(block));
    return (block & 0x8080808080808080U) == 0;
}

bool IsAsciiBlock(const char16_t* place)
{
    std::uint64_t halves[2];
    std::memcpy(halves, place, sizeof(halves));
    return ((halves[0] | halves[1]) & 0xFF80FF80FF80FF80U) == 0;
}

const unsigned char* Begin(std::string_view bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

// Walks the bytes: `ascii` gets runs of ASCII, `other` each further sequence and may end the walk.
template <typename TAscii, typename TOther>
void Walk(std::string_view bytes, TAscii ascii, TOther other)
{
    const unsigned char* place = Begin(bytes);
    const unsigned char* const end = place + bytes.size();
    while (place != end)
    {
        for (; end - place >= BLOCK && IsAsciiBlock(place); place += BLOCK)
            ascii(place, BLOCK);
        for (; place != end && *place < 0x80; ++place)
            ascii(place, 1);
        while (place != end && *place >= 0x80)
        {
            const CSequence sequence = ReadSequence(place, end);
            if (!other(sequence))
                return;
            place += sequence.m_Length;
        }
    }
}

bool IsPair(const char16_t* place, const char16_t* end)
{
    return (place[0] & 0xFC00) == 0xD800 && end - place >= 2 && (place[1] & 0xFC00) == 0xDC00;
}

// The bytes above one a unit of a run. Without branches, so that many units are counted at once: a
// pair has four bytes, where its halves alone would have three each.
template <std::size_t COUNT>
std::size_t CountExtraBytes(const char16_t* place)
{
    std::uint16_t extra = 0;
    std::uint16_t pairs = 0;
    for (std::size_t i = 0; i < COUNT; ++i)
    {
        extra += static_cast<std::uint16_t>((place[i] >= 0x80) + (place[i] >= 0x800));
        pairs += static_cast<std::uint16_t>(((place[i] & 0xFC00) == 0xD800) &
                                            ((place[i + 1] & 0xFC00) == 0xDC00));
    }
    return static_cast<std::size_t>(extra) - 2U * pairs;
}

char* PutCharacter(char* out, char32_t character)
{
    const auto tail = [character](int shift)
    {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };

    if (character < 0x80)
    {
        *out++ = static_cast<char>(character);
        return out;
    }
    if (character < 0x800)
        *out++ = static_cast<char>(0xC0 | (character >> 6));
    else
    {
        if (character < 0x10000)
            *out++ = static_cast<char>(0xE0 | (character >> 12));
        else
        {
            *out++ = static_cast<char>(0xF0 | (character >> 18));
            *out++ = tail(12);
        }
        *out++ = tail(6);
    }
    *out++ = tail(0);
    return out;
}

} // namespace

std::size_t Decode(std::string_view bytes, char16_t* text)
{
    char16_t* out = text;
    Walk(
        bytes,
        [&out](const unsigned char* place, std::ptrdiff_t count)
        {
            for (std::ptrdiff_t i = 0; i < count; ++i)
                out[i] = place[i];
            out += count;
        },
        [&out](const CSequence& sequence)
        {
            char32_t character = sequence.m_Character;
            if (character >= 0x10000)
            {
                character -= 0x10000;
                *out++ = static_cast<char16_t>(0xD800 | (character >> 10));
                character = 0xDC00 | (character & 0x3FF);
            }
            *out++ = static_cast<char16_t>(character);
            return true;
        });
    return static_cast<std::size_t>(out - text);
}

std::size_t CountUnits(std::string_view bytes)
{
    std::size_t count = 0;
    Walk(
        bytes,
        [&count](const unsigned char*, std::ptrdiff_t run)
        { count += static_cast<std::size_t>(run); },
        [&count](const CSequence& sequence)
        {
            count += sequence.m_Character >= 0x10000 ? 2 : 1;
            return true;
        });
    return count;
}

bool IsWellFormed(std::string_view bytes)
{
    bool wellFormed = true;
    Walk(
        bytes, [](const unsigned char*, std::ptrdiff_t) {},
        [&wellFormed](const CSequence& sequence) { return wellFormed = sequence.m_WellFormed; });
    return wellFormed;
}

std::size_t Encode(std::u16string_view text, char* bytes)
{
    const char16_t* place = text.data();
    const char16_t* const end = place + text.size();
    char* out = bytes;
    while (place != end)
    {
        for (; end - place >= BLOCK && IsAsciiBlock(place); place += BLOCK, out += BLOCK)
            for (std::ptrdiff_t i = 0; i < BLOCK; ++i)
                out[i] = static_cast<char>(place[i]);
        for (; place != end && *place < 0x80; ++place)
            *out++ = static_cast<char>(*place);
        for (; place != end && *place >= 0x80; ++place)
        {
            char32_t character = *place;
            if (IsPair(place, end))
                character = 0x10000 + ((character & 0x3FF) << 10) + (*++place & 0x3FF);
            else if ((character & 0xF800) == 0xD800)
                character = REPLACEMENT;
            out = PutCharacter(out, character);
        }
    }
    return static_cast<std::size_t>(out - bytes);
}

std::size_t CountBytes(std::u16string_view text)
{
    constexpr std::size_t RUN = 64; // few enough for 16-bit sums
    const char16_t* place = text.data();
    std::size_t left = text.size();
    std::size_t count = left;
    for (; left > RUN; left -= RUN, place += RUN) // one unit more stands behind each run
        count += CountExtraBytes<RUN>(place);

    const char16_t* const end = place + left;
    for (; place != end; ++place)
    {
        count += (*place >= 0x80) + (*place >= 0x800);
        count -= IsPair(place, end) ? 2 : 0;
    }
    return count;
}

} // namespace utility::utf8
