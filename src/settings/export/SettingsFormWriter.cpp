#include "settings/export/SettingsFormWriter.h"

#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"

namespace utility
{

namespace
{

constexpr std::size_t INDENT = 2;
constexpr std::string_view START = "(Settings 1 ";

/// A text in UTF-8 between quotes.
std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char byte : text)
    {
        if (byte == '"' || byte == '\\')
            quoted += '\\';
        quoted += byte;
    }
    return quoted + "\"";
}

/// A lone bracket is escaped, since readers of form text that peek take a quoted one for structure.
std::string Quoted(const CString& text)
{
    std::u16string escaped = EscapeSettingsText(text.View());
    if (escaped == u"(" || escaped == u")")
    {
        const char16_t bracket = escaped.front();
        escaped.clear();
        AppendSettingsEscape(escaped, bracket);
    }
    return Quoted(ToUtf8(escaped));
}

} // namespace

void CSettingsFormWriter::OpenTop(const std::string& name)
{
    Append(START);
    Append(Quoted(name));
    EndLine();
}

void CSettingsFormWriter::CloseTop()
{
    Append(")");
    EndLine();
}

void CSettingsFormWriter::OpenKey(const std::string& name)
{
    BeginLine(INDENT);
    Append("(" + name);
    EndLine();
}

void CSettingsFormWriter::WriteEmptyKey(const std::string& name)
{
    BeginLine(INDENT);
    Append("(" + name + ")");
    EndLine();
}

void CSettingsFormWriter::CloseKey(const std::string&)
{
    BeginLine(INDENT);
    Append(")");
    EndLine();
}

void CSettingsFormWriter::WriteValue(const std::string& name, const CSettingsWords& words)
{
    BeginLine(INDENT);
    Append("(" + name + " " + ToUtf8(words.m_Type));
    const bool isText = words.m_Type.starts_with(u"text");
    for (const CString& text : words.m_Texts)
        Append(" " + (isText ? Quoted(text) : ToUtf8(text.View())));
    Append(")");
    EndLine();
}

} // namespace utility
