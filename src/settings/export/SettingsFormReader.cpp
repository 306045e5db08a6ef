#include "settings/export/SettingsFormReader.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"

namespace utility
{

namespace
{

constexpr std::string_view MARK = "\xEF\xBB\xBF";
constexpr std::string_view TOP = "Settings";
constexpr std::string_view VERSION = "1";

bool EndsWord(char byte)
{
    return IsSpace(static_cast<unsigned char>(byte)) || byte == '(' || byte == ')' || byte == '"';
}

} // namespace

bool CSettingsFormReader::Read(const CString& name)
{
    if (m_Bytes.starts_with(MARK))
        m_Place = MARK.size();
    if (!Next() || !OpenTop(name))
        return false;
    while (!m_Open.empty())
    {
        if (!TakeToken())
            return false;
    }
    return m_Token.m_Kind == EToken::End || Stop(ESettingsFault::Unexpected);
}

/// "(Settings 1 name", and the token behind it.
bool CSettingsFormReader::OpenTop(const CString& name)
{
    if (m_Token.m_Kind != EToken::Open)
        return Stop(ESettingsFault::OtherFormat);
    const std::size_t offset = m_Token.m_Offset;
    if (!Next())
        return false;
    if (m_Token.m_Kind != EToken::Word || m_Token.m_Word != TOP)
        return Stop(ESettingsFault::OtherFormat);
    if (!Next())
        return false;
    if (m_Token.m_Kind != EToken::Word)
        return Stop(ESettingsFault::OtherFormat);
    if (m_Token.m_Word != VERSION)
        return Stop(ESettingsFault::NewerFormat, FromUtf8(m_Token.m_Word));
    if (!Next())
        return false;
    if (m_Token.m_Kind != EToken::Quoted)
        return Stop(ESettingsFault::OtherFormat);
    if (!m_Builder.OpenTop(m_Token.m_Text, name, m_Token.m_Offset))
        return false;
    m_Open.push_back(offset);
    return Next();
}

/// What stands directly within a key.
bool CSettingsFormReader::TakeToken()
{
    switch (m_Token.m_Kind)
    {
    case EToken::Open:
        return TakeForm();
    case EToken::Close:
        m_Open.pop_back();
        m_Builder.CloseKey();
        return Next();
    case EToken::End:
        return m_Builder.Stop(ESettingsFault::OpenEnd, m_Open.back());
    case EToken::Word:
    case EToken::Quoted:
        break;
    }
    return Stop(ESettingsFault::Unexpected);
}

/// A key's beginning, or a whole value: that has a word behind its name.
bool CSettingsFormReader::TakeForm()
{
    const std::size_t offset = m_Token.m_Offset;
    if (!Next())
        return false;
    if (m_Token.m_Kind != EToken::Word)
        return Stop(ESettingsFault::Unexpected);
    const std::string_view name = m_Token.m_Word;
    if (!Next())
        return false;
    if (m_Token.m_Kind == EToken::Word)
        return ReadValue(name, offset);
    if (!m_Builder.OpenKey(name, offset))
        return false;
    m_Open.push_back(offset);
    return true;
}

bool CSettingsFormReader::ReadValue(std::string_view name, std::size_t offset)
{
    const std::string_view type = m_Token.m_Word;
    const bool isText = type == "text" || type == "texts";
    std::vector<CString> texts;
    if (!Next())
        return false;
    while (m_Token.m_Kind == (isText ? EToken::Quoted : EToken::Word))
    {
        texts.push_back(isText ? m_Token.m_Text : FromUtf8(m_Token.m_Word));
        if (!Next())
            return false;
    }
    if (m_Token.m_Kind == EToken::End)
        return m_Builder.Stop(ESettingsFault::OpenEnd, offset);
    if (m_Token.m_Kind != EToken::Close)
        return Stop(ESettingsFault::Unexpected);
    return m_Builder.AddValue(name, type, texts, offset) && Next();
}

bool CSettingsFormReader::Next()
{
    while (m_Place < m_Bytes.size() && IsSpace(static_cast<unsigned char>(m_Bytes[m_Place])))
        ++m_Place;
    m_Token = {EToken::End, {}, {}, m_Place};
    if (m_Place == m_Bytes.size())
        return true;
    switch (m_Bytes[m_Place])
    {
    case '(':
        m_Token.m_Kind = EToken::Open;
        ++m_Place;
        return true;
    case ')':
        m_Token.m_Kind = EToken::Close;
        ++m_Place;
        return true;
    case '"':
        return ReadQuoted();
    default:
        ReadWord();
        return true;
    }
}

void CSettingsFormReader::ReadWord()
{
    std::size_t end = m_Place;
    while (end < m_Bytes.size() && !EndsWord(m_Bytes[end]))
        ++end;
    m_Token.m_Kind = EToken::Word;
    m_Token.m_Word = m_Bytes.substr(m_Place, end - m_Place);
    m_Place = end;
}

bool CSettingsFormReader::ReadQuoted()
{
    std::string plain;
    ++m_Place;
    while (m_Place < m_Bytes.size() && m_Bytes[m_Place] != '"')
    {
        if (static_cast<unsigned char>(m_Bytes[m_Place]) < 0x20)
            return m_Builder.Stop(ESettingsFault::BadUnit, m_Place);
        if (m_Bytes[m_Place] == '\\')
        {
            const char next = m_Place + 1 < m_Bytes.size() ? m_Bytes[m_Place + 1] : '\0';
            if (next != '"' && next != '\\')
                return m_Builder.Stop(ESettingsFault::BadEscape, m_Place);
            ++m_Place;
        }
        plain += m_Bytes[m_Place++];
    }
    if (m_Place == m_Bytes.size())
        return Stop(ESettingsFault::OpenEnd);
    ++m_Place;
    m_Token.m_Kind = EToken::Quoted;
    m_Token.m_Text = UnescapeSettingsText(FromUtf8(plain).View());
    return true;
}

} // namespace utility
