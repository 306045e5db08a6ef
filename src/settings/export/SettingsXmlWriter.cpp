#include "settings/export/SettingsXmlWriter.h"

#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"

namespace utility
{

namespace
{

constexpr std::size_t INDENT = 4;
constexpr std::string_view START =
    "<?xml version='1.0' encoding='UTF-8' ?>\r\n<Settings version=\"1\" name=\"";

/// A text in UTF-8 with entities for what would end it.
std::string Coded(std::string_view text)
{
    std::string coded;
    coded.reserve(text.size());
    for (const char byte : text)
    {
        switch (byte)
        {
        case '&':
            coded += "&amp;";
            break;
        case '<':
            coded += "&lt;";
            break;
        case '>':
            coded += "&gt;";
            break;
        case '"':
            coded += "&quot;";
            break;
        default:
            coded += byte;
        }
    }
    return coded;
}

std::string Coded(const CString& text)
{
    return Coded(ToUtf8(EscapeSettingsText(text.View())));
}

} // namespace

void CSettingsXmlWriter::OpenTop(const std::string& name)
{
    Append(START);
    Append(Coded(name));
    Append("\">");
    EndLine();
}

void CSettingsXmlWriter::CloseTop()
{
    Append("</Settings>");
    EndLine();
}

void CSettingsXmlWriter::OpenKey(const std::string& name)
{
    BeginLine(INDENT);
    Append("<" + name + ">");
    EndLine();
}

void CSettingsXmlWriter::WriteEmptyKey(const std::string& name)
{
    BeginLine(INDENT);
    Append("<" + name + "/>");
    EndLine();
}

void CSettingsXmlWriter::CloseKey(const std::string& name)
{
    BeginLine(INDENT);
    Append("</" + name + ">");
    EndLine();
}

void CSettingsXmlWriter::WriteValue(const std::string& name, const CSettingsWords& words)
{
    BeginLine(INDENT);
    Append("<" + name + " type=\"" + ToUtf8(words.m_Type) + "\"");
    const bool isList = words.m_Type == u"texts";
    std::string content;
    for (const CString& text : words.m_Texts)
        content += isList ? "<text>" + Coded(text) + "</text>" : Coded(text);
    Append(content.empty() ? "/>" : ">" + content + "</" + name + ">");
    EndLine();
}

} // namespace utility
