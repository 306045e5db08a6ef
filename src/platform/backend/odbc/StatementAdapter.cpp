#include "platform/backend/odbc/StatementAdapter.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::u16string_view WORDS_BEHIND_A_CONDITION[] = {
    u"AND",   u"OR",     u"GROUP", u"ORDER",  u"LIMIT",  u"HAVING",
    u"UNION", u"EXCEPT", u"FETCH", u"OFFSET", u"WINDOW", u"INTERSECT"};

bool IsWordUnit(char16_t unit)
{
    return IsAlnum(unit) || unit == u'_' || unit == u'$' || unit >= 0x80;
}

/// One walk over a statement; each step copies or rewrites what stands at the place.
class CAdapterWalk
{
public:
    CAdapterWalk(std::u16string_view sql, const CSqlDialect& dialect)
        : m_Sql(sql),
          m_Dialect(dialect),
          m_IsCreateTable(IsCreateTable(sql))
    {
        m_Result.Preallocate(static_cast<int>(sql.size()) + 16);
    }

    CString Run()
    {
        while (m_Place < m_Sql.size())
            Step();
        return m_Result;
    }

private:
    static std::u16string_view NextWord(std::u16string_view sql, std::size_t& place);
    static bool IsCreateTable(std::u16string_view sql);

    void Step();
    bool IsIndexBracket() const;
    void CopyTo(std::size_t end);
    void CopyQuoted(char16_t quote, bool hasEscapes);
    void CopyThrough(std::u16string_view closing);
    void CopyDollarLiteral();
    void CopyWord();
    void WriteName();
    void WriteAutoIncrement();
    bool IsZeroCondition(std::size_t& zero) const;

    char16_t UnitAt(std::size_t place) const { return place < m_Sql.size() ? m_Sql[place] : u'\0'; }
    bool StartsWith(std::u16string_view text) const
    {
        return m_Sql.substr(m_Place).starts_with(text);
    }

    std::u16string_view m_Sql;
    const CSqlDialect& m_Dialect;
    bool m_IsCreateTable;
    bool m_IsBracketOpen =
        false; // a bracket was met that nothing closes: no other is closed either
    std::size_t m_Place = 0;
    CString m_Result;
};

std::u16string_view CAdapterWalk::NextWord(std::u16string_view sql, std::size_t& place)
{
    while (place < sql.size() && IsSpace(sql[place]))
        ++place;
    const std::size_t start = place;
    while (place < sql.size() && IsWordUnit(sql[place]))
        ++place;
    return sql.substr(start, place - start);
}

bool CAdapterWalk::IsCreateTable(std::u16string_view sql)
{
    std::size_t place = 0;
    if (!EqualNoCase(NextWord(sql, place), u"CREATE"))
        return false;
    std::u16string_view word = NextWord(sql, place);
    while (EqualNoCase(word, u"TEMP") || EqualNoCase(word, u"TEMPORARY") ||
           EqualNoCase(word, u"GLOBAL") || EqualNoCase(word, u"LOCAL") ||
           EqualNoCase(word, u"UNLOGGED"))
        word = NextWord(sql, place);
    return EqualNoCase(word, u"TABLE");
}

void CAdapterWalk::Step()
{
    const char16_t unit = m_Sql[m_Place];
    if (unit == u'\'')
        CopyQuoted(unit, m_Dialect.HasBackslashEscapes);
    else if (unit == u'"' || unit == u'`')
        CopyQuoted(unit, m_Dialect.HasBackslashEscapes && unit == u'"');
    else if (StartsWith(u"--") || (unit == u'#' && m_Dialect.HasHashComments))
        CopyThrough(u"\n");
    else if (StartsWith(u"/*"))
        CopyThrough(u"*/");
    else if (unit == u'$' && m_Dialect.HasDollarLiterals)
        CopyDollarLiteral();
    else if (unit == u'[' && !IsIndexBracket())
        WriteName();
    else if (IsWordUnit(unit))
        CopyWord();
    else
        CopyTo(m_Place + 1);
}

bool CAdapterWalk::IsIndexBracket() const
{
    if (m_Place == 0)
        return false;
    const char16_t before = m_Sql[m_Place - 1];
    return IsWordUnit(before) || before == u')' || before == u']' || before == u'"' ||
           before == u'`';
}

void CAdapterWalk::CopyTo(std::size_t end)
{
    m_Result += m_Sql.substr(m_Place, end - m_Place);
    m_Place = end;
}

/// A doubled quote needs no care: what follows reads as a second literal beside the first.
void CAdapterWalk::CopyQuoted(char16_t quote, bool hasEscapes)
{
    std::size_t end = m_Place + 1;
    while (end < m_Sql.size() && m_Sql[end] != quote)
        end += hasEscapes && m_Sql[end] == u'\\' ? 2 : 1;
    CopyTo(std::min(end + 1, m_Sql.size()));
}

void CAdapterWalk::CopyThrough(std::u16string_view closing)
{
    const std::size_t found = m_Sql.find(closing, m_Place + 2 - (closing.size() == 1 ? 1 : 0));
    CopyTo(found == std::u16string_view::npos ? m_Sql.size() : found + closing.size());
}

void CAdapterWalk::CopyDollarLiteral()
{
    std::size_t end = m_Place + 1;
    while (IsAlnum(UnitAt(end)) || UnitAt(end) == u'_')
        ++end;
    if (UnitAt(end) != u'$' || IsDigit(UnitAt(m_Place + 1))) // $1 is a parameter
    {
        CopyTo(end);
        return;
    }
    const std::u16string_view tag = m_Sql.substr(m_Place, end + 1 - m_Place);
    const std::size_t found = m_Sql.find(tag, end + 1);
    CopyTo(found == std::u16string_view::npos ? m_Sql.size() : found + tag.size());
}

void CAdapterWalk::CopyWord()
{
    std::size_t end = m_Place;
    while (end < m_Sql.size() && IsWordUnit(m_Sql[end]))
        ++end;
    const std::u16string_view word = m_Sql.substr(m_Place, end - m_Place);
    if (m_IsCreateTable && EqualNoCase(word, u"AUTO_INCREMENT"))
    {
        WriteAutoIncrement();
        m_Place = end;
        return;
    }
    CopyTo(end);
    if (EqualNoCase(word, u"E") && UnitAt(end) == u'\'')
    {
        CopyQuoted(u'\'', true); // E'...' has escapes wherever it is known
        return;
    }
    std::size_t zero = end;
    if (!m_Dialect.KeepsWhereZero && EqualNoCase(word, u"WHERE") && IsZeroCondition(zero))
    {
        CopyTo(zero);
        m_Result += u"1=0";
        m_Place = zero + 1;
    }
}

bool CAdapterWalk::IsZeroCondition(std::size_t& zero) const
{
    std::size_t place = zero;
    const std::u16string_view number = NextWord(m_Sql, place);
    if (number != std::u16string_view(u"0") || place == zero + 1) // WHERE0 is no condition
        return false;
    zero = place - 1;
    const std::u16string_view next = NextWord(m_Sql, place);
    if (!next.empty())
        return std::ranges::any_of(WORDS_BEHIND_A_CONDITION, [&](std::u16string_view word)
                                   { return EqualNoCase(word, next); });
    return place == m_Sql.size() || m_Sql[place] == u')' || m_Sql[place] == u';';
}

void CAdapterWalk::WriteAutoIncrement()
{
    switch (m_Dialect.AutoIncrement)
    {
    case EAutoIncrement::Keep:
        m_Result += u"AUTO_INCREMENT";
        break;
    case EAutoIncrement::Drop:
        m_Result.TrimRight();
        break;
    case EAutoIncrement::Identity:
        m_Result += u"GENERATED BY DEFAULT AS IDENTITY";
        break;
    }
}

void CAdapterWalk::WriteName()
{
    std::size_t end = m_IsBracketOpen ? m_Sql.size() : m_Place + 1;
    while (end < m_Sql.size() && (m_Sql[end] != u']' || UnitAt(end + 1) == u']'))
        end += m_Sql[end] == u']' ? 2 : 1;
    if (end >= m_Sql.size())
    {
        m_IsBracketOpen = true;
        CopyTo(m_Place + 1);
        return;
    }
    m_Result += m_Dialect.Quote;
    for (std::size_t place = m_Place + 1; place < end; ++place)
    {
        const char16_t unit = m_Sql[place];
        m_Result += unit;
        if (unit == m_Dialect.Quote)
            m_Result += unit;
        else if (unit == u']')
            ++place;
    }
    m_Result += m_Dialect.Quote;
    m_Place = end + 1;
}

} // namespace

CString AdaptStatement(std::u16string_view sql, const CSqlDialect& dialect)
{
    return CAdapterWalk(sql, dialect).Run();
}

} // namespace utility
