#include "settings/export/SettingsXmlReader.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"

#include <array>
#include <charconv>

namespace utility
{

namespace
{

constexpr std::string_view MARK = "\xEF\xBB\xBF";
constexpr std::string_view TOP = "Settings";
constexpr std::string_view VERSION = "1";
constexpr std::size_t MOST_ATTRIBUTES = 2; // those of the top
constexpr std::size_t LONGEST_REFERENCE = 10;

struct CEntity
{
    std::string_view m_Name;
    char m_Byte;
};

constexpr std::array<CEntity, 5> ENTITIES = {
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

bool IsNameByte(char byte)
{
    const auto unit = static_cast<unsigned char>(byte);
    return unit >= 0x80 || IsAlnum(unit) || byte == '_' || byte == '-' || byte == '.';
}

/// The character of "#65" or "#x41" in UTF-8; empty if there is no such character.
std::string CharacterOf(std::string_view reference)
{
    reference.remove_prefix(1);
    const bool isHex = reference.starts_with('x');
    reference.remove_prefix(isHex ? 1 : 0);
    std::uint32_t point = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stop, code] = std::from_chars(reference.data(), end, point, isHex ? 16 : 10);
    const bool isHalf = point >= 0xD800 && point <= 0xDFFF;
    if (code != std::errc() || stop != end || point == 0 || point > 0x10FFFF || isHalf)
        return {};
    std::u16string units;
    if (point > 0xFFFF)
    {
        units += static_cast<char16_t>(0xD7C0 + (point >> 10));
        units += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    }
    else
        units += static_cast<char16_t>(point);
    return ToUtf8(units);
}

} // namespace

bool CSettingsXmlReader::Read(const CString& name)
{
    if (m_Bytes.starts_with(MARK))
        m_Place = MARK.size();
    CTag tag;
    if (!SkipDeclaration() || !SkipBetween())
        return false;
    if (!m_Bytes.substr(m_Place).starts_with('<'))
        return Stop(ESettingsFault::OtherFormat, m_Place);
    if (!m_Bytes.substr(m_Place + 1).starts_with(TOP))
        return Stop(ESettingsFault::OtherFormat, m_Place);
    if (!ReadTag(tag) || !OpenTop(tag, name))
        return false;
    while (!m_Open.empty())
    {
        if (!SkipBetween())
            return false;
        const COpenElement open = m_Open.back();
        if (m_Place == m_Bytes.size())
            return Stop(ESettingsFault::OpenEnd, open.m_Offset, FromUtf8(open.m_Name));
        if (!ReadTag(tag) || !TakeTag(tag))
            return false;
    }
    return SkipBetween() &&
           (m_Place == m_Bytes.size() || Stop(ESettingsFault::Unexpected, m_Place));
}

bool CSettingsXmlReader::SkipDeclaration()
{
    if (!m_Bytes.substr(m_Place).starts_with("<?xml "))
        return true;
    const std::size_t end = m_Bytes.find("?>", m_Place);
    if (end == std::string_view::npos)
        return Stop(ESettingsFault::OpenEnd, m_Place);
    m_Place = end + 2;
    return true;
}

/// White space and comments.
bool CSettingsXmlReader::SkipBetween()
{
    for (;;)
    {
        SkipSpace();
        if (!m_Bytes.substr(m_Place).starts_with("<!--"))
            return true;
        const std::size_t end = m_Bytes.find("-->", m_Place + 4);
        if (end == std::string_view::npos)
            return Stop(ESettingsFault::OpenEnd, m_Place);
        m_Place = end + 3;
    }
}

void CSettingsXmlReader::SkipSpace()
{
    while (m_Place < m_Bytes.size() && IsSpace(static_cast<unsigned char>(m_Bytes[m_Place])))
        ++m_Place;
}

bool CSettingsXmlReader::ReadTag(CTag& tag)
{
    tag = {ETag::Open, {}, {}, m_Place};
    if (m_Bytes.substr(m_Place).starts_with("</"))
        tag.m_Kind = ETag::Close;
    else if (!m_Bytes.substr(m_Place).starts_with('<'))
        return Stop(ESettingsFault::Unexpected, m_Place);
    m_Place += tag.m_Kind == ETag::Close ? 2 : 1;
    if (!ReadName(tag.m_Name))
        return false;
    for (;;)
    {
        const std::size_t before = m_Place;
        SkipSpace();
        const std::string_view rest = m_Bytes.substr(m_Place);
        if (rest.empty())
            return Stop(ESettingsFault::OpenEnd, tag.m_Offset, FromUtf8(tag.m_Name));
        if (rest.starts_with('>'))
        {
            ++m_Place;
            return true;
        }
        if (rest.starts_with("/>") && tag.m_Kind == ETag::Open)
        {
            tag.m_Kind = ETag::Empty;
            m_Place += 2;
            return true;
        }
        if (tag.m_Kind == ETag::Close || m_Place == before ||
            tag.m_Attributes.size() == MOST_ATTRIBUTES)
            return Stop(ESettingsFault::Unexpected, m_Place);
        if (!ReadAttribute(tag.m_Attributes.emplace_back()))
            return false;
    }
}

bool CSettingsXmlReader::ReadName(std::string_view& name)
{
    std::size_t end = m_Place;
    while (end < m_Bytes.size() && IsNameByte(m_Bytes[end]))
        ++end;
    name = m_Bytes.substr(m_Place, end - m_Place);
    if (name.empty())
        return Stop(ESettingsFault::Unexpected, m_Place);
    if (IsDigit(static_cast<unsigned char>(name[0])) || name[0] == '-' || name[0] == '.')
        return Stop(ESettingsFault::BadName, m_Place, FromUtf8(name));
    m_Place = end;
    return true;
}

bool CSettingsXmlReader::ReadAttribute(CAttribute& attribute)
{
    if (!ReadName(attribute.m_Name))
        return false;
    SkipSpace();
    if (!m_Bytes.substr(m_Place).starts_with('='))
        return Stop(ESettingsFault::Unexpected, m_Place);
    ++m_Place;
    SkipSpace();
    const char quote = m_Place < m_Bytes.size() ? m_Bytes[m_Place] : '\0';
    if (quote != '"' && quote != '\'')
        return Stop(ESettingsFault::Unexpected, m_Place);
    ++m_Place;
    if (!ReadText(quote, attribute.m_Value))
        return false;
    ++m_Place;
    return true;
}

/// Up to the byte that ends it, which stays.
bool CSettingsXmlReader::ReadText(char end, CString& text)
{
    const std::size_t start = m_Place;
    std::string plain;
    while (m_Place < m_Bytes.size() && m_Bytes[m_Place] != end)
    {
        const char byte = m_Bytes[m_Place];
        if (byte == '<')
            return Stop(ESettingsFault::Unexpected, m_Place);
        if (static_cast<unsigned char>(byte) < 0x20)
            return Stop(ESettingsFault::BadUnit, m_Place);
        if (byte == '&')
        {
            if (!ReadReference(plain))
                return false;
            continue;
        }
        plain += byte;
        ++m_Place;
    }
    if (m_Place == m_Bytes.size())
        return Stop(ESettingsFault::OpenEnd, start);
    text = UnescapeSettingsText(FromUtf8(plain).View());
    return true;
}

bool CSettingsXmlReader::ReadReference(std::string& text)
{
    const std::string_view rest = m_Bytes.substr(m_Place + 1, LONGEST_REFERENCE);
    const std::string_view name = rest.substr(0, std::min(rest.find(';'), rest.size()));
    std::string character;
    for (const CEntity& entity : ENTITIES)
    {
        if (entity.m_Name == name)
            character = entity.m_Byte;
    }
    if (name.starts_with('#'))
        character = CharacterOf(name);
    if (character.empty() || name.size() == rest.size())
        return Stop(ESettingsFault::BadEscape, m_Place);
    text += character;
    m_Place += name.size() + 2;
    return true;
}

bool CSettingsXmlReader::OpenTop(const CTag& tag, const CString& name)
{
    const auto& attributes = tag.m_Attributes;
    if (tag.m_Name != TOP || tag.m_Kind == ETag::Close || attributes.size() != MOST_ATTRIBUTES ||
        attributes[0].m_Name != "version" || attributes[1].m_Name != "name")
        return Stop(ESettingsFault::OtherFormat, tag.m_Offset);
    if (ToUtf8(attributes[0].m_Value.View()) != VERSION)
        return Stop(ESettingsFault::NewerFormat, tag.m_Offset, attributes[0].m_Value);
    if (!m_Builder.OpenTop(attributes[1].m_Value, name, tag.m_Offset))
        return false;
    if (tag.m_Kind == ETag::Open)
        m_Open.push_back({tag.m_Name, tag.m_Offset});
    return true;
}

bool CSettingsXmlReader::TakeTag(const CTag& tag)
{
    if (tag.m_Kind == ETag::Close)
    {
        if (!ConfirmClose(tag, m_Open.back().m_Name))
            return false;
        m_Open.pop_back();
        m_Builder.CloseKey();
        return true;
    }
    if (tag.m_Attributes.size() == 1 && tag.m_Attributes[0].m_Name == "type")
        return ReadValue(tag);
    if (!tag.m_Attributes.empty())
        return Stop(ESettingsFault::Unexpected, tag.m_Offset, FromUtf8(tag.m_Name));
    if (!m_Builder.OpenKey(tag.m_Name, tag.m_Offset))
        return false;
    if (tag.m_Kind == ETag::Open)
        m_Open.push_back({tag.m_Name, tag.m_Offset});
    else
        m_Builder.CloseKey();
    return true;
}

bool CSettingsXmlReader::ReadValue(const CTag& tag)
{
    const std::string type = ToUtf8(tag.m_Attributes[0].m_Value.View());
    const bool isList = type == "texts";
    std::vector<CString> texts;
    if (tag.m_Kind == ETag::Open && !ReadContent(tag, isList, texts))
        return false;
    if (texts.empty() && !isList)
        texts.emplace_back();
    return m_Builder.AddValue(tag.m_Name, type, texts, tag.m_Offset);
}

/// What stands between the tags of a value, and the one that closes it.
bool CSettingsXmlReader::ReadContent(const CTag& tag, bool isList, std::vector<CString>& texts)
{
    CTag inner;
    if (!isList)
        return ReadText('<', texts.emplace_back()) && ReadTag(inner) &&
               ConfirmClose(inner, tag.m_Name);
    for (;;)
    {
        SkipSpace();
        if (!ReadTag(inner))
            return false;
        if (inner.m_Kind == ETag::Close)
            return ConfirmClose(inner, tag.m_Name);
        if (!ReadItem(inner, texts))
            return false;
    }
}

bool CSettingsXmlReader::ReadItem(const CTag& tag, std::vector<CString>& texts)
{
    if (tag.m_Name != "text" || !tag.m_Attributes.empty())
        return Stop(ESettingsFault::Unexpected, tag.m_Offset, FromUtf8(tag.m_Name));
    texts.emplace_back();
    CTag close;
    return tag.m_Kind == ETag::Empty ||
           (ReadText('<', texts.back()) && ReadTag(close) && ConfirmClose(close, tag.m_Name));
}

bool CSettingsXmlReader::ConfirmClose(const CTag& tag, std::string_view name)
{
    return (tag.m_Kind == ETag::Close && tag.m_Name == name) ||
           Stop(tag.m_Kind == ETag::Close ? ESettingsFault::WrongClose : ESettingsFault::Unexpected,
                tag.m_Offset, FromUtf8(tag.m_Name));
}

} // namespace utility
