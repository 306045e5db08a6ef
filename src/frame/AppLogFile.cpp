#include "frame/AppLogFile.h"

#include "platform/base/Encoding.h"
#include "platform/base/LastError.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>

namespace utility
{

namespace
{

/// Appends units in UTF-8 with CR LF for each line feed.
void AppendLines(std::string& bytes, std::u16string_view text)
{
    for (;;)
    {
        const std::size_t end = std::min(units::Find(text, u'\n'), text.size());
        bytes += ToUtf8(text.substr(0, end));
        if (end == text.size())
            return;
        bytes += "\r\n";
        text.remove_prefix(end + 1);
    }
}

} // namespace

void CAppLogFile::SetPath(const CString& path)
{
    const CLastErrorKeeper keeper;
    const std::lock_guard lock(m_Lock);
    m_File.SetPath(path);
}

void CAppLogFile::Write(int blanks, std::u16string_view text)
{
    const CLastErrorKeeper keeper;
    const std::lock_guard lock(m_Lock);
    m_Bytes.assign(static_cast<std::size_t>(std::max(blanks, 0)), ' ');
    AppendLines(m_Bytes, text);
    m_File.Append(m_Bytes);
}

} // namespace utility
