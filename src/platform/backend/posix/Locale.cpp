#include "platform/system/Locale.h"

#include "platform/backend/posix/UserLocale.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <optional>
#include <string>

namespace utility
{

namespace
{

/// What the customs hang on; they are read anew when it changes.
std::string GetLocaleNames()
{
    std::string names;
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
    {
        const char* value = std::getenv(variable);
        names += value ? value : "";
        names += '\n';
    }
    return names;
}

CDateCustoms ReadUserCustoms()
{
    const CUserLocale locale(LC_TIME_MASK | LC_CTYPE_MASK);
    if (!locale.Get())
        return ReadDatePattern("");

    CDateCustoms customs = ReadDatePattern(::nl_langinfo_l(D_FMT, locale.Get()));
    const bool isUtf8 = std::strcmp(::nl_langinfo_l(CODESET, locale.Get()), "UTF-8") == 0;
    const UINT page = isUtf8 ? CP_UTF8 : CP_ACP;
    for (int i = 0; i < 12; ++i)
    {
        const auto month = static_cast<std::size_t>(i);
        customs.m_Months[month] = FromBytes(page, ::nl_langinfo_l(MON_1 + i, locale.Get()));
        customs.m_ShortMonths[month] = FromBytes(page, ::nl_langinfo_l(ABMON_1 + i, locale.Get()));
    }
    return customs;
}

/// The letter of the order that a mark of the pattern stands for, or 0.
char16_t OrderLetter(char mark)
{
    switch (mark)
    {
    case 'd':
    case 'e':
        return u'D';
    case 'm':
    case 'b':
    case 'B':
        return u'M';
    case 'y':
    case 'Y':
        return u'Y';
    default:
        return 0;
    }
}

} // namespace

CString GetLocaleInfoW(DWORD, DWORD item)
{
    CString text;
    if (item == LOCALE_IDEFAULTANSICODEPAGE)
        text.Format(u"%u", GetACP());
    return text;
}

CDateCustoms ReadDatePattern(const char* pattern)
{
    std::string_view marks = pattern;
    if (marks == "%F")
        marks = "%Y-%m-%d";

    CDateCustoms customs{{u'M', u'D', u'Y'}, u'/', {}, {}};
    std::array<char16_t, 3> order{};
    char16_t separator = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < marks.size() && count < order.size(); ++i)
    {
        if (marks[i] != '%')
        {
            if (count == 1 && separator == 0)
                separator = static_cast<unsigned char>(marks[i]);
            continue;
        }
        ++i;
        while (i + 1 < marks.size() && std::strchr("-_0EO", marks[i])) // flags
            ++i;
        const char16_t letter = OrderLetter(marks[i]);
        if (letter != 0 && std::find(order.begin(), order.end(), letter) == order.end())
            order[count++] = letter;
    }
    const bool isUsable = separator != 0 && separator < 0x80 && !IsAlnum(separator);
    if (count == order.size() && isUsable)
    {
        customs.m_Order = order;
        customs.m_Separator = separator;
    }
    return customs;
}

const CDateCustoms& GetDateCustoms()
{
    struct CKnownCustoms
    {
        std::string m_Names;
        CDateCustoms m_Customs;
    };
    static thread_local std::optional<CKnownCustoms> known;
    std::string names = GetLocaleNames();
    if (!known || known->m_Names != names)
        known = CKnownCustoms{std::move(names), ReadUserCustoms()};
    return known->m_Customs;
}

} // namespace utility
