#include "platform/base/CharacterClass.h"
#include "text/match/WildcardChars.h"
#include "text/names/NameParts.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeIndex.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr char16_t LIST_SEP = u','; // within brackets, whatever parts the items

bool IsAllDigits(std::u16string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

bool IsBound(std::u16string_view typed, const CString& whole)
{
    return IsAllDigits(typed) && ReadDigits(whole.View()) < std::numeric_limits<int>::max();
}

} // namespace

void CNameRange::GetStem(const CString& name, CString& stem, int& number, int& width, CString& tail)
{
    const CString text = name; // outputs may be the name itself
    const CNameParts parts = ReadNameParts(text.View());
    number = parts.m_Number;
    width = parts.GetWidth();
    stem = parts.m_Stem;
    tail = parts.m_Tail;
}

void CNameRange::Renumber(CString& name, int number)
{
    CString stem;
    CString tail;
    int old = 0;
    int width = 0;
    GetStem(name, stem, old, width, tail);
    name.Format(u"%s%d%s", stem, number, tail);
}

bool CNameRange::IsRange(const CString& text, char16_t rangeStart, char16_t rangeEnd, char16_t,
                         char16_t itemSep)
{
    return text.Find(itemSep) >= 0 || (text.Find(rangeStart) >= 0 && text.Find(rangeEnd) >= 0);
}

/// Digits before a range end mark count, those behind it belong to the tail.
CNameParts CNameRange::GetRangeStem(std::u16string_view name) const
{
    const std::size_t end = name.find(m_RangeEnd);
    if (end == name.npos || end == 0 || end == name.size() - 1)
        return ReadNameParts(name);
    CNameParts parts = ReadNameParts(name.substr(0, end + 1));
    if (parts.HasNumber())
        parts.m_Tail = name.substr(parts.m_Stem.size() + parts.m_Digits.size());
    else
        parts.m_Stem = name;
    return parts;
}

void CNameRange::SetString(const CString& text)
{
    const CString source = text;
    Clear();
    m_Text = source;
    m_Valid = ValidRange(source.View());
}

void CNameRange::SetString(const CString& first, const CString& last)
{
    Clear();
    const CNameParts low = GetRangeStem(first.View());
    const CNameParts high = GetRangeStem(last.View());
    if (low.HasNumber() && high.HasNumber() &&
        IsSameName(low.m_Stem, high.m_Stem, m_CaseSensitive) &&
        IsSameName(low.m_Tail, high.m_Tail, m_CaseSensitive))
    {
        AppendItem(std::make_unique<CNameRangeItem>(this, low.m_Stem, low.m_Digits, high.m_Digits,
                                                    low.m_Tail));
    }
    else
    {
        AddSingleName(first.View());
        AddSingleName(last.View());
    }
    m_Text = GetString();
}

void CNameRange::SetFromWildcardString(CString text)
{
    const char16_t rangeStart = m_RangeStart;
    const char16_t rangeEnd = m_RangeEnd;
    const char16_t rangeSep = m_RangeSep;
    const char16_t itemSep = m_ItemSep;
    char16_t format = 0;
    GetWildRangeChars(format, m_RangeStart, m_RangeEnd, m_RangeSep, m_ItemSep);
    text.Remove(format);
    SetString(text);
    m_RangeStart = rangeStart;
    m_RangeEnd = rangeEnd;
    m_RangeSep = rangeSep;
    m_ItemSep = itemSep;
}

bool CNameRange::ValidRange(std::u16string_view text)
{
    std::size_t start = 0;
    for (std::size_t end = text.find(m_ItemSep); end != text.npos;
         end = text.find(m_ItemSep, start))
    {
        if (!AddNameItem(text.substr(start, end - start)))
            return false;
        start = end + 1;
    }
    return AddNameItem(text.substr(start));
}

bool CNameRange::IsSingleName(std::u16string_view entry) const
{
    const std::size_t start = entry.find(m_RangeStart);
    const std::size_t end = entry.find(m_RangeEnd);
    return start == entry.npos || end == entry.npos || start >= end;
}

bool CNameRange::AddNameItem(std::u16string_view entry)
{
    entry = TrimEntry(entry);
    if (IsSingleName(entry))
    {
        AddSingleName(entry);
        return true;
    }

    const std::size_t start = entry.find(m_RangeStart);
    const std::size_t end = entry.find(m_RangeEnd);
    std::u16string_view prefix = entry.substr(0, start);
    CString digits; // that stand directly before the range and so belong to its numbers
    const CNameParts parts = ReadNameParts(prefix);
    if (parts.HasNumber() && parts.m_Tail.empty())
    {
        digits = parts.m_Digits;
        prefix = parts.m_Stem;
    }
    const CString stem = TrimEntry(prefix);

    std::u16string_view body = entry.substr(start + 1, end - start - 1);
    for (std::size_t separator = body.find(LIST_SEP);
         separator != body.npos && m_RangeSep != LIST_SEP; separator = body.find(LIST_SEP))
    {
        // On purpose without the suffix: only the last member gets it.
        if (!AddMember(stem, digits, body.substr(0, separator), {}))
            return false;
        body = body.substr(separator + 1);
    }
    return AddMember(stem, digits, body, entry.substr(end + 1));
}

bool CNameRange::AddMember(const CString& prefix, const CString& digits, std::u16string_view member,
                           std::u16string_view suffix)
{
    const std::size_t separator = member.find(m_RangeSep);
    if (separator == member.npos)
    {
        CString name = prefix + digits;
        name += member;
        name += suffix;
        AddSingleName(name.View());
        return true;
    }
    const std::u16string_view typedLow = TrimEntry(member.substr(0, separator));
    const std::u16string_view typedHigh = TrimEntry(member.substr(separator + 1));
    CString low = digits;
    CString high = digits;
    low += typedLow;
    high += typedHigh;
    if (!IsBound(typedLow, low) || !IsBound(typedHigh, high))
        return false;
    AppendItem(
        std::make_unique<CNameRangeItem>(this, prefix.View(), low.View(), high.View(), suffix));
    return true;
}

/// Nothing for the empty name, which would end every walk.
void CNameRange::AddSingleName(std::u16string_view name)
{
    if (!name.empty())
        AddParts(GetRangeStem(name));
}

void CNameRange::AddParts(const CNameParts& parts)
{
    AppendItem(std::make_unique<CNameRangeItem>(this, parts.m_Stem, parts.m_Digits, parts.m_Digits,
                                                parts.m_Tail));
}

} // namespace utility
