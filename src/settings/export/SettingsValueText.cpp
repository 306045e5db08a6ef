#include "settings/export/SettingsValueText.h"

#include <charconv>
#include <cstring>
#include <span>
#include <string>

namespace utility
{

namespace
{

struct CTypeName
{
    DWORD m_Type;
    std::u16string_view m_Name;
};

constexpr CTypeName TYPE_NAMES[] = {
    {REG_SZ, u"text"},    {REG_MULTI_SZ, u"texts"}, {REG_DWORD, u"number"},
    {REG_QWORD, u"wide"}, {REG_BINARY, u"bytes"},
};

constexpr std::string_view HEX_DIGITS = "0123456789ABCDEF";

/// The units of the data; false for half a unit at the end.
bool UnitsOf(std::span<const BYTE> data, std::u16string& units)
{
    units.resize(data.size() / sizeof(char16_t));
    if (!units.empty())
        std::memcpy(units.data(), data.data(), units.size() * sizeof(char16_t));
    return data.size() % sizeof(char16_t) == 0;
}

void AppendUnits(std::vector<BYTE>& data, std::u16string_view units)
{
    const auto* bytes = reinterpret_cast<const BYTE*>(units.data());
    data.insert(data.end(), bytes, bytes + units.size() * sizeof(char16_t));
}

/// Cuts texts that each end in a zero unit; false if the last does not.
bool CutTexts(std::u16string_view units, std::vector<CString>& texts)
{
    while (!units.empty())
    {
        const std::size_t end = units.find(u'\0');
        if (end == std::u16string_view::npos)
            return false;
        texts.emplace_back(units.substr(0, end));
        units.remove_prefix(end + 1);
    }
    return true;
}

bool PutText(std::span<const BYTE> data, std::vector<CString>& texts)
{
    std::u16string units;
    return UnitsOf(data, units) && CutTexts(units, texts) && texts.size() == 1;
}

/// The list ends in a zero unit of its own.
bool PutTexts(std::span<const BYTE> data, std::vector<CString>& texts)
{
    std::u16string units;
    if (!UnitsOf(data, units) || !units.ends_with(u'\0'))
        return false;
    units.pop_back();
    return CutTexts(units, texts);
}

template <typename TNumber>
bool PutNumber(std::span<const BYTE> data, std::vector<CString>& texts)
{
    TNumber number = 0;
    if (data.size() != sizeof(number))
        return false;
    std::memcpy(&number, data.data(), sizeof(number));
    texts.emplace_back().Format(u"%I64d", static_cast<std::int64_t>(number));
    return true;
}

CString HexText(std::span<const BYTE> data)
{
    std::u16string digits;
    digits.reserve(data.size() * 2);
    for (const BYTE byte : data)
    {
        digits += static_cast<char16_t>(HEX_DIGITS[byte >> 4]);
        digits += static_cast<char16_t>(HEX_DIGITS[byte & 0xF]);
    }
    return CString(std::u16string_view(digits));
}

/// A copy for the number readers; empty for a text that is none.
std::string AsciiOf(const CString& text)
{
    std::string ascii;
    for (const char16_t unit : text.View())
        ascii += unit < 0x80 ? static_cast<char>(unit) : '\0';
    return ascii;
}

template <typename TNumber>
bool ReadNumber(const std::vector<CString>& texts, std::vector<BYTE>& data)
{
    if (texts.size() != 1)
        return false;
    const std::string ascii = AsciiOf(texts.front());
    TNumber number = 0;
    const auto [end, code] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
    if (code != std::errc() || end != ascii.data() + ascii.size())
        return false;
    data.resize(sizeof(number));
    std::memcpy(data.data(), &number, sizeof(number));
    return true;
}

bool ReadBytes(const std::vector<CString>& texts, std::vector<BYTE>& data)
{
    const std::string ascii = texts.empty() ? std::string() : AsciiOf(texts.front());
    if (texts.size() > 1 || ascii.size() % 2 != 0)
        return false;
    data.resize(ascii.size() / 2);
    for (std::size_t at = 0; at < data.size(); ++at)
    {
        const char* digits = ascii.data() + 2 * at;
        const auto [end, code] = std::from_chars(digits, digits + 2, data[at], 16);
        if (code != std::errc() || end != digits + 2)
            return false;
    }
    return true;
}

/// A text with a zero unit in it would end there.
bool ReadTexts(const std::vector<CString>& texts, std::vector<BYTE>& data)
{
    for (const CString& text : texts)
    {
        if (text.View().find(u'\0') != std::u16string_view::npos)
            return false;
        AppendUnits(data, {text.GetString(), static_cast<std::size_t>(text.GetLength()) + 1});
    }
    return true;
}

} // namespace

bool PutIntoWords(const CSettingsValue& value, CSettingsWords& words)
{
    for (const CTypeName& type : TYPE_NAMES)
    {
        if (type.m_Type == value.m_Type)
            words.m_Type = type.m_Name;
    }
    words.m_Texts.clear();
    switch (value.m_Type)
    {
    case REG_SZ:
        return PutText(value.m_Data, words.m_Texts);
    case REG_MULTI_SZ:
        return PutTexts(value.m_Data, words.m_Texts);
    case REG_DWORD:
        return PutNumber<std::int32_t>(value.m_Data, words.m_Texts);
    case REG_QWORD:
        return PutNumber<std::int64_t>(value.m_Data, words.m_Texts);
    case REG_BINARY:
        if (!value.m_Data.empty())
            words.m_Texts.push_back(HexText(value.m_Data));
        return true;
    default:
        return false;
    }
}

EWordsFault ReadFromWords(std::u16string_view type, const std::vector<CString>& texts,
                          CSettingsValue& value)
{
    value.m_Type = REG_NONE;
    for (const CTypeName& known : TYPE_NAMES)
    {
        if (known.m_Name == type)
            value.m_Type = known.m_Type;
    }
    value.m_Data.clear();
    bool isSound = false;
    switch (value.m_Type)
    {
    case REG_SZ:
        isSound = texts.size() == 1 && ReadTexts(texts, value.m_Data);
        break;
    case REG_MULTI_SZ:
        isSound = ReadTexts(texts, value.m_Data);
        AppendUnits(value.m_Data, {u"", 1});
        break;
    case REG_DWORD:
        isSound = ReadNumber<std::int32_t>(texts, value.m_Data);
        break;
    case REG_QWORD:
        isSound = ReadNumber<std::int64_t>(texts, value.m_Data);
        break;
    case REG_BINARY:
        isSound = ReadBytes(texts, value.m_Data);
        break;
    default:
        return EWordsFault::Type;
    }
    return isSound ? EWordsFault::None : EWordsFault::Value;
}

} // namespace utility
