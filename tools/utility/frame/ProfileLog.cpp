#include "utility/frame/ProfileLog.h"

#include "platform/base/NumberText.h"
#include "platform/system/file/StdioFile.h"
#include "text/TrimView.h"

namespace utility
{

namespace
{

constexpr std::u16string_view DIGITS = u"0123456789";

/// Cuts a closing mark, a number and what stands before it off the end; false if it is not so.
bool CutNumber(std::u16string_view& line, std::u16string_view closing, std::u16string_view opening,
               int& number)
{
    if (!line.ends_with(closing))
        return false;
    std::u16string_view rest = line.substr(0, line.size() - closing.size());
    const std::size_t last = rest.find_last_not_of(DIGITS);
    if (last == std::u16string_view::npos || last + 1 == rest.size())
        return false;
    number = _wtoi(CString(rest.substr(last + 1)));
    rest = rest.substr(0, last + 1);
    if (!rest.ends_with(opening))
        return false;
    line = rest.substr(0, rest.size() - opening.size());
    return true;
}

bool IsRule(const CString& line)
{
    return line.GetLength() == 50 &&
           line.View().find_first_not_of(u'-') == std::u16string_view::npos;
}

} // namespace

std::optional<CProfileRow> ParseProfileLine(const CString& line)
{
    std::u16string_view rest = line.View();
    CProfileRow row;
    if (!CutNumber(rest, u"]", u" [", row.m_Calls) ||
        !CutNumber(rest, u"%)", u" (", row.m_Percent) || !CutNumber(rest, u"", u" ", row.m_Total))
        return std::nullopt;
    while (rest.ends_with(u' '))
        rest.remove_suffix(1);
    if (!rest.ends_with(u':'))
        return std::nullopt;
    row.m_Name = TrimView(rest.substr(0, rest.size() - 1));
    return row;
}

CProfileLog ReadProfileLog(const CString& path)
{
    CStdioFile file(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeText);
    CProfileLog log;
    int tables = 0;
    for (CString line; file.ReadString(line);)
    {
        if (IsRule(line))
        {
            ++tables;
            continue;
        }
        std::optional<CProfileRow> row = ParseProfileLine(line);
        if (!row)
        {
            log.m_Others.push_back(line);
            continue;
        }
        row->m_Table = tables;
        log.m_Rows.push_back(std::move(*row));
    }
    return log;
}

} // namespace utility
