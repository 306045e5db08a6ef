#include "settings/form/FormQuoting.h"

namespace utility
{

namespace
{

constexpr char16_t ESCAPE = u'\\';

// What an escape stands for together with `unit`; 0 if the two are plain text.
char16_t ResolvedUnit(char16_t unit)
{
    switch (unit)
    {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u'(':
    case u')':
        return unit;
    default:
        return 0;
    }
}

void AppendProtected(CString& result, char16_t unit)
{
    result += ESCAPE;
    if (unit == u'\n')
        result += u'n';
    else if (unit == u'\r')
        result += u'r';
    else
        result += unit;
}

} // namespace

CString ProtectFormText(const CString& text, const CString& formStart, const CString& formEnd,
                        bool escapeEscapes)
{
    CString result;
    if (text.GetLength() == 1 && (text == formStart || text == formEnd))
    {
        result += ESCAPE;
        return result += text;
    }

    const std::u16string_view reserved = escapeEscapes ? u"\"\n\r\\" : u"\"\n\r";
    const std::u16string_view view = text.View();
    std::size_t start = 0;
    for (std::size_t place = view.find_first_of(reserved); place != view.npos;
         place = view.find_first_of(reserved, start))
    {
        result += view.substr(start, place - start);
        AppendProtected(result, view[place]);
        start = place + 1;
    }
    return start == 0 ? text : result += view.substr(start);
}

void UnescapeFormText(std::u16string_view text, char16_t quote, char16_t escape, CString& result)
{
    std::size_t start = 0;
    for (std::size_t place = text.find(escape); place != text.npos;
         place = text.find(escape, start))
    {
        const char16_t next = place + 1 < text.size() ? text[place + 1] : u'\0';
        const bool resolved = place + 1 < text.size() && (next == escape || next == quote);
        result += text.substr(start, place - start);
        if (!resolved)
            result += escape;
        if (place + 1 < text.size())
            result += next;
        start = std::min(place + 2, text.size());
    }
    result += text.substr(start);
}

CString ResolveFormLineEnds(const CString& text)
{
    const std::u16string_view view = text.View();
    CString result;
    std::size_t start = 0;
    for (std::size_t place = view.find(ESCAPE); place != view.npos && place + 1 < view.size();
         place = view.find(ESCAPE, start))
    {
        const char16_t resolved = ResolvedUnit(view[place + 1]);
        result += view.substr(start, place - start);
        if (resolved == 0)
            result += view.substr(place, 2);
        else
            result += resolved;
        start = place + 2;
    }
    return start == 0 ? text : result += view.substr(start);
}

} // namespace utility
