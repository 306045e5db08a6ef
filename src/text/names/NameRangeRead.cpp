#include "platform/base/CharacterClass.h"
#include "platform/base/NumberText.h"
#include "text/match/StringCompare.h"
#include "text/match/WildcardChars.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeIndex.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr int NO_NUMBER = std::numeric_limits<std::int32_t>::max(); // what large runs saturate to

bool IsAllDigits(const CString& text)
{
    const std::u16string_view units = text.View();
    return !units.empty() && std::all_of(units.begin(), units.end(), IsDigit);
}

bool IsBound(const CString& typed, const CString& whole)
{
    return IsAllDigits(typed) && wcstol(whole, nullptr, 10) < NO_NUMBER;
}

} // namespace

void CNameRange::GetStem(const CString& name, CString& stem, int& number, int& width, CString& tail)
{
    const CString text = name; // outputs may be the name itself
    int end = text.GetLength();
    while (end > 1 && !IsDigit(text[end - 1]))
        --end;
    int start = end;
    while (start > 0 && IsDigit(text[start - 1]))
        --start;
    number = end > 1 && start < end ? _wtoi(text.Mid(start, end - start)) : NO_NUMBER;
    if (number == NO_NUMBER)
    {
        stem = text;
        number = -1;
        width = 0;
        tail.Empty();
        return;
    }
    stem = text.Left(start);
    width = end - start;
    tail = text.Mid(end);
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
void CNameRange::GetRangeStem(const CString& name, CString& stem, int& number, int& width,
                              CString& tail) const
{
    const int end = name.Find(m_RangeEnd);
    if (end <= 0 || end == name.GetLength() - 1)
    {
        GetStem(name, stem, number, width, tail);
        return;
    }
    GetStem(name.Left(end + 1), stem, number, width, tail);
    if (width > 0)
        tail += name.Mid(end + 1);
    else
        stem = name;
}

void CNameRange::SetString(const CString& text)
{
    const CString source = text;
    Clear();
    m_Text = source;
    m_Valid = ValidRange(source);
}

void CNameRange::SetString(const CString& first, const CString& last)
{
    struct CParts
    {
        CString m_Stem;
        CString m_Tail;
        int m_Number = 0;
        int m_Width = 0;
    };
    CParts low;
    CParts high;
    Clear();
    GetRangeStem(first, low.m_Stem, low.m_Number, low.m_Width, low.m_Tail);
    GetRangeStem(last, high.m_Stem, high.m_Number, high.m_Width, high.m_Tail);
    const auto same = [&](const CString& left, const CString& right)
    {
        return StringCompare(left, right, m_CaseSensitive, false, true) == 0;
    };
    if (low.m_Width > 0 && high.m_Width > 0 && same(low.m_Stem, high.m_Stem) &&
        same(low.m_Tail, high.m_Tail))
    {
        CString lowText;
        CString highText;
        AppendNumber(lowText, low.m_Number, low.m_Width);
        AppendNumber(highText, high.m_Number, high.m_Width);
        AppendItem(
            std::make_unique<CNameRangeItem>(this, low.m_Stem, lowText, highText, low.m_Tail));
    }
    else
    {
        for (const CString& name : {first, last})
        {
            if (!name.IsEmpty())
                AddSingleName(name);
        }
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

bool CNameRange::ValidRange(const CString& text)
{
    int start = 0;
    for (int end = text.Find(m_ItemSep); end >= 0; end = text.Find(m_ItemSep, start))
    {
        if (!AddNameItem(text.Mid(start, end - start)))
            return false;
        start = end + 1;
    }
    return AddNameItem(text.Mid(start));
}

bool CNameRange::AddNameItem(CString entry)
{
    entry.Trim();
    if (entry.IsEmpty())
        return true;
    const int start = entry.Find(m_RangeStart);
    const int end = entry.Find(m_RangeEnd);
    if (start < 0 || start >= end)
    {
        AddSingleName(entry);
        return true;
    }

    CString prefix = entry.Left(start);
    CString digits; // that stand directly before the range and so belong to its numbers
    CString stem;
    CString tail;
    int number = 0;
    int width = 0;
    GetStem(prefix, stem, number, width, tail);
    if (width > 0 && tail.IsEmpty())
    {
        digits = prefix.Mid(stem.GetLength());
        prefix = stem;
    }
    prefix.Trim();

    const CString suffix = entry.Mid(end + 1);
    CString body = entry.Mid(start + 1, end - start - 1);
    for (int separator = body.Find(m_ItemSep); separator >= 0; separator = body.Find(m_ItemSep))
    {
        // On purpose without the suffix: only the last member gets it.
        if (!AddMember(prefix, digits, body.Left(separator), CString()))
            return false;
        body = body.Mid(separator + 1);
    }
    return AddMember(prefix, digits, body, suffix);
}

bool CNameRange::AddMember(const CString& prefix, const CString& digits, CString member,
                           const CString& suffix)
{
    const int separator = member.Find(m_RangeSep);
    if (separator < 0)
    {
        AddSingleName(prefix + digits + member + suffix);
        return true;
    }
    const CString low = member.Left(separator).Trim();
    const CString high = member.Mid(separator + 1).Trim();
    if (!IsBound(low, digits + low) || !IsBound(high, digits + high))
        return false;
    AppendItem(std::make_unique<CNameRangeItem>(this, prefix, digits + low, digits + high, suffix));
    return true;
}

void CNameRange::AddSingleName(const CString& name)
{
    CString stem;
    CString tail;
    CString digits;
    int number = 0;
    int width = 0;
    GetRangeStem(name, stem, number, width, tail);
    if (width > 0)
        AppendNumber(digits, number, width);
    AppendItem(std::make_unique<CNameRangeItem>(this, stem, digits, digits, tail));
}

} // namespace utility
