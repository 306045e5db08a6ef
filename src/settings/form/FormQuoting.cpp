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

bool IsReserved(char16_t unit, bool escapeEscapes)
{
    switch (unit)
    {
    case u'"':
    case u'\n':
    case u'\r':
        return true;
    case ESCAPE:
        return escapeEscapes;
    default:
        return false;
    }
}

/// What stands behind the escape for a reserved unit.
char16_t ProtectedUnit(char16_t unit)
{
    return unit == u'\n' ? u'n' : unit == u'\r' ? u'r' : unit;
}

} // namespace

void AppendProtectedFormText(std::u16string& result, std::u16string_view text,
                             std::u16string_view formStart, std::u16string_view formEnd,
                             bool escapeEscapes)
{
    if (text.size() == 1 && (text == formStart || text == formEnd))
        result += ESCAPE;

    std::size_t start = 0;
    for (std::size_t place = 0; place < text.size(); ++place)
    {
        if (!IsReserved(text[place], escapeEscapes))
            continue;
        result += text.substr(start, place - start);
        result += ESCAPE;
        result += ProtectedUnit(text[place]);
        start = place + 1;
    }
    result += text.substr(start);
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
