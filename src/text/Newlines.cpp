#include "text/Newlines.h"

#include <algorithm>

namespace utility
{

int CountLines(const CString& text)
{
    const std::u16string_view units = text.View();
    if (units.empty())
        return 0;
    return 1 + static_cast<int>(std::count(units.begin(), units.end() - 1, u'\n'));
}

void ContractNewlines(const CString& in, CString& out)
{
    const CString source = in; // may be `out`
    for (const char16_t unit : source.View())
    {
        if (unit != u'\r')
            out += unit;
    }
}

void ExpandNewlines(const CString& in, CString& out)
{
    const CString source = in;
    for (const char16_t unit : source.View())
    {
        if (unit == u'\n')
            out += u'\r';
        out += unit;
    }
}

void ReplaceNewlines(const CString& in, CString& out, const CString& prefix, const CString& suffix)
{
    const CString source = in;
    const CString before = prefix;
    const CString behind = suffix;
    const std::u16string_view units = source.View();
    out += before;
    for (std::size_t i = 0; i < units.size(); ++i)
    {
        if (units[i] != u'\r')
        {
            out += units[i];
            continue;
        }
        ++i; // the unit behind goes too
        out += behind;
        out += u'\n';
        out += before;
    }
    out += behind;
}

} // namespace utility
