#include "platform/db/SelectText.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

#include <algorithm>

namespace utility
{

namespace
{

bool IsWordUnit(char16_t unit)
{
    return IsAlnum(unit) || unit == u'_' || unit == u'$' || unit >= 0x80;
}

/// The next piece of a statement: a word, a delimited name, a literal or a single unit; empty at
/// the end.
std::u16string_view NextToken(std::u16string_view sql, std::size_t& place)
{
    while (place < sql.size() && IsSpace(sql[place]))
        ++place;
    const std::size_t start = place;
    if (place == sql.size())
        return {};
    const char16_t unit = sql[place++];
    if (IsWordUnit(unit))
    {
        while (place < sql.size() && IsWordUnit(sql[place]))
            ++place;
    }
    else if (unit == u'[' || unit == u'"' || unit == u'`' || unit == u'\'')
    {
        const char16_t close = unit == u'[' ? u']' : unit;
        while (place < sql.size() &&
               (sql[place] != close || (place + 1 < sql.size() && sql[place + 1] == close)))
            place += sql[place] == close ? 2 : 1;
        place = std::min(place + 1, sql.size());
    }
    return sql.substr(start, place - start);
}

bool IsOneOf(std::u16string_view token, std::initializer_list<std::u16string_view> words)
{
    return std::ranges::any_of(words,
                               [&](std::u16string_view word) { return EqualNoCase(word, token); });
}

bool IsName(std::u16string_view token)
{
    return !token.empty() &&
           (IsWordUnit(token[0]) || token[0] == u'[' || token[0] == u'"' || token[0] == u'`');
}

/// Names with dots between; empty, and `place` stays, if none stands there.
std::u16string_view ReadQualifiedName(std::u16string_view sql, std::size_t& place)
{
    std::size_t start = place;
    while (start < sql.size() && IsSpace(sql[start]))
        ++start;
    std::size_t end = start;
    for (std::size_t next = start; IsName(NextToken(sql, next));)
    {
        end = next;
        if (next == sql.size() || sql[next] != u'.')
            break;
        ++next;
    }
    if (end > start)
        place = end;
    return sql.substr(start, end - start);
}

/// Goes behind the outermost FROM; false if there is none.
bool SkipToTables(std::u16string_view sql, std::size_t& place)
{
    int depth = 0;
    for (auto token = NextToken(sql, place); !token.empty(); token = NextToken(sql, place))
    {
        if (token[0] == u'(')
            ++depth;
        else if (token[0] == u')')
            --depth;
        else if (depth == 0 && EqualNoCase(token, u"FROM"))
            return true;
    }
    return false;
}

/// Whether anything behind the table's name makes the rows something else than the table's.
bool HasOnlyConditions(std::u16string_view sql, std::size_t place)
{
    int depth = 0;
    bool isInTables = true;
    for (auto token = NextToken(sql, place); !token.empty(); token = NextToken(sql, place))
    {
        if (token[0] == u'(')
            ++depth;
        else if (token[0] == u')')
            --depth;
        if (depth != 0)
            continue;
        if (IsOneOf(token, {u"UNION", u"INTERSECT", u"EXCEPT", u"GROUP", u"HAVING"}))
            return false;
        if (isInTables && (token[0] == u',' || EqualNoCase(token, u"JOIN")))
            return false;
        if (IsOneOf(token, {u"WHERE", u"ORDER", u"LIMIT", u"OFFSET", u"FETCH", u"FOR"}))
            isInTables = false;
    }
    return true;
}

} // namespace

CString CompleteSelect(std::u16string_view text)
{
    const CString trimmed = CString(text).Trim();
    const std::u16string_view sql = trimmed.View();
    std::size_t place = 0;
    const std::u16string_view name = ReadQualifiedName(sql, place);
    if (name.empty() || place != sql.size())
        return CString(text);
    const bool isPlainWord = std::ranges::all_of(name, IsWordUnit);
    return isPlainWord ? u"SELECT * FROM [" + trimmed + u"]" : u"SELECT * FROM " + trimmed;
}

CString FindEditableTable(std::u16string_view sql)
{
    std::size_t place = 0;
    if (!EqualNoCase(NextToken(sql, place), u"SELECT"))
        return {};
    std::size_t second = place;
    if (EqualNoCase(NextToken(sql, second), u"DISTINCT") || !SkipToTables(sql, place))
        return {};
    const std::u16string_view name = ReadQualifiedName(sql, place);
    return HasOnlyConditions(sql, place) ? CString(name) : CString();
}

} // namespace utility
