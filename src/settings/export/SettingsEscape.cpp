#include "settings/export/SettingsEscape.h"

#include "platform/base/CharacterClass.h"

#include <algorithm>
#include <iterator>

namespace utility
{

namespace
{

constexpr std::u16string_view ESCAPE_START = u"_x";
constexpr std::size_t DIGITS = 4;
constexpr std::size_t ESCAPE_LENGTH = 7; // "_x", the digits, "_"
constexpr std::u16string_view EMPTY_NAME = u"_";

struct CUnitRange
{
    char16_t m_First;
    char16_t m_Last;
};

// Letters that XML 1.0 has allowed in names since its first edition.
constexpr CUnitRange LETTERS[] = {
    {0x00C0, 0x00D6}, {0x00D8, 0x00F6}, {0x00F8, 0x0131}, {0x0134, 0x013E}, // Latin
    {0x0141, 0x0148}, {0x014A, 0x017E},                                     //
    {0x0391, 0x03A1}, {0x03A3, 0x03CE},                                     // Greek
    {0x0410, 0x044F},                                                       // Cyrillic
    {0x3041, 0x3094}, {0x30A1, 0x30FA},                                     // Japanese syllables
    {0x4E00, 0x9FA5},                                                       // ideographs
    {0xAC00, 0xD7A3},                                                       // Korean syllables
};

bool IsNameStart(char16_t unit)
{
    if (unit < 0x80)
        return IsAlpha(unit) || unit == u'_';
    return std::any_of(std::begin(LETTERS), std::end(LETTERS),
                       [unit](const CUnitRange& range)
                       { return unit >= range.m_First && unit <= range.m_Last; });
}

bool IsNameUnit(char16_t unit)
{
    return IsNameStart(unit) || IsDigit(unit) || unit == u'-' || unit == u'.';
}

bool IsLead(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrail(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Units that files cannot hold, or that nobody would see there.
bool IsHidden(char16_t unit)
{
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F) || unit == 0xFEFF || unit >= 0xFFFE;
}

int DigitOf(char16_t unit)
{
    if (IsDigit(unit))
        return unit - u'0';
    const char16_t lower = static_cast<char16_t>(unit | 0x20);
    return unit < 0x80 && lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// Whether "_x" and four digits begin here: the "_" is then escaped, whatever follows, for an
/// escape may follow.
bool LooksLikeEscape(std::u16string_view text)
{
    return text.size() >= ESCAPE_START.size() + DIGITS && text.starts_with(ESCAPE_START) &&
           std::all_of(text.begin() + 2, text.begin() + 6,
                       [](char16_t unit) { return DigitOf(unit) >= 0; });
}

} // namespace

void AppendSettingsEscape(std::u16string& out, char16_t unit)
{
    constexpr std::u16string_view DIGIT_UNITS = u"0123456789ABCDEF";
    out += ESCAPE_START;
    for (int shift = 12; shift >= 0; shift -= 4)
        out += DIGIT_UNITS[(unit >> shift) & 0xF];
    out += u'_';
}

std::u16string EscapeSettingsName(std::u16string_view name)
{
    if (name.empty())
        return std::u16string(EMPTY_NAME);
    std::u16string out;
    for (std::size_t at = 0; at < name.size(); ++at)
    {
        const bool stands = (at == 0 ? IsNameStart(name[at]) : IsNameUnit(name[at])) &&
                            !LooksLikeEscape(name.substr(at)) && name != EMPTY_NAME;
        if (stands)
            out += name[at];
        else
            AppendSettingsEscape(out, name[at]);
    }
    return out;
}

std::u16string EscapeSettingsText(std::u16string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        const char16_t unit = text[at];
        const bool isOuterBlank = unit == u' ' && (at == 0 || at + 1 == text.size());
        if (IsLead(unit) && at + 1 < text.size() && IsTrail(text[at + 1]))
            out += text[at++];
        else if (IsLead(unit) || IsTrail(unit) || IsHidden(unit) || isOuterBlank ||
                 LooksLikeEscape(text.substr(at)))
        {
            AppendSettingsEscape(out, unit);
            continue;
        }
        out += text[at];
    }
    return out;
}

CString UnescapeSettingsText(std::u16string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    while (!text.empty())
    {
        if (!LooksLikeEscape(text) || text.size() < ESCAPE_LENGTH ||
            text[ESCAPE_LENGTH - 1] != u'_')
        {
            out += text.front();
            text.remove_prefix(1);
            continue;
        }
        int unit = 0;
        for (const char16_t digit : text.substr(ESCAPE_START.size(), DIGITS))
            unit = unit * 16 + DigitOf(digit);
        out += static_cast<char16_t>(unit);
        text.remove_prefix(ESCAPE_LENGTH);
    }
    return CString(std::u16string_view(out));
}

CString UnescapeSettingsName(std::u16string_view name)
{
    return name == EMPTY_NAME ? CString() : UnescapeSettingsText(name);
}

} // namespace utility
