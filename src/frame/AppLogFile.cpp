#include "frame/AppLogFile.h"

#include "platform/base/Encoding.h"
#include "platform/base/LastError.h"

namespace utility
{

namespace
{

constexpr char16_t ASCII_END = 0x80;

/// Appends units in UTF-8 with CR LF for each line feed.
void AppendLines(std::string& bytes, std::u16string_view text)
{
    std::size_t next = 0;
    while (next < text.size())
    {
        if (text[next] == u'\n')
        {
            bytes += "\r\n";
            ++next;
        }
        else if (text[next] < ASCII_END)
        {
            bytes += static_cast<char>(text[next++]);
        }
        else
        {
            const std::size_t end = std::min(text.find(u'\n', next), text.size());
            bytes += ToUtf8(text.substr(next, end - next));
            next = end;
        }
    }
}

} // namespace

void CAppLogFile::SetPath(const CString& path)
{
    const CLastErrorKeeper keeper;
    m_File.SetPath(path);
}

void CAppLogFile::Write(int blanks, std::u16string_view text)
{
    const CLastErrorKeeper keeper;
    m_Bytes.assign(static_cast<std::size_t>(std::max(blanks, 0)), ' ');
    AppendLines(m_Bytes, text);
    m_File.Append(m_Bytes);
}

} // namespace utility
