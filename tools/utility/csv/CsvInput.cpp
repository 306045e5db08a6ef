#include "utility/csv/CsvInput.h"

#include "files/BreakCSV.h"
#include "platform/base/Encoding.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
constexpr std::string_view UTF16_MARK = "\xFF\xFE";
constexpr std::string_view BIG_ENDIAN_MARK = "\xFE\xFF";
constexpr char16_t REPLACEMENT = 0xFFFD; // what ill-formed bytes become

/// Why the line cannot be taken for text; empty if it can.
const char16_t* FindEncodingFault(std::string_view bytes, const CString& text, bool isFirst)
{
    if (isFirst && bytes.starts_with(UTF16_MARK))
        return u"the file is UTF-16; 'utility text convert' makes UTF-8 of it";
    if (isFirst && bytes.starts_with(BIG_ENDIAN_MARK))
        return u"the file is UTF-16 with the high byte first, which is not read here";
    if (text.Find(REPLACEMENT) >= 0 && ToUtf8(text.View()) != bytes)
        return u"this is no UTF-8; 'utility text convert --page' makes it so";
    return u"";
}

} // namespace

bool CCsvInput::OpenInput(const CString& path)
{
    return Open(path == u"-" ? CString(u"\\dev\\stdin") : path,
                CFile::modeRead | CFile::shareDenyNone);
}

bool CCsvInput::ReadString(CString& line)
{
    std::string_view bytes;
    bool isEnded = false;
    line.Empty();
    if (!m_Fault.IsEmpty() || !ReadRawLine(1, bytes, isEnded))
        return false;
    if (m_TextNumber++ == 0 && bytes.starts_with(UTF8_MARK))
        bytes.remove_prefix(UTF8_MARK.size());
    if (isEnded && bytes.ends_with('\r'))
        bytes.remove_suffix(1);

    CString text = FromUtf8(bytes);
    m_Fault = FindEncodingFault(bytes, text, m_TextNumber == 1);
    if (!m_Fault.IsEmpty())
        return false;
    m_Text = text;
    line = std::move(text);
    return true;
}

bool CCsvInput::ReadRow(std::vector<CString>& fields)
{
    if (m_Format.m_Rules == ECsvRules::Break)
        return BreakNextLine(fields);
    int count = 0;
    do
    {
        count = NextLine();
    } while (count == 0);
    if (count < 0)
        return false;
    fields.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        fields[static_cast<std::size_t>(i)] = GetField(i);
    return true;
}

bool CCsvInput::BreakNextLine(std::vector<CString>& fields)
{
    CString line;
    do
    {
        if (!ReadString(line))
            return false;
    } while (line.IsEmpty());

    // No line has more fields than separators and one more.
    const std::u16string_view text = line.View();
    const auto limit = std::count(text.begin(), text.end(), m_Format.m_Separator) + 1;
    fields.resize(static_cast<std::size_t>(limit) + 1);
    const int count = BreakCSV(line, fields.data(), static_cast<int>(limit), m_Format.m_Separator);
    fields.resize(static_cast<std::size_t>(count));
    return true;
}

} // namespace utility
