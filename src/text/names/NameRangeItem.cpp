#include "text/names/NameRangeItem.h"

#include "platform/base/CharacterClass.h"
#include "text/names/NameParts.h"
#include "text/names/NameRange.h"

#include <algorithm>

namespace utility
{

CNameRangeItem::CNameRangeItem(CNameRange* parent, std::u16string_view stem,
                               std::u16string_view low, std::u16string_view high,
                               std::u16string_view tail)
    : m_Parent(parent),
      m_Stem(stem)
{
    if (low.empty())
        return;
    m_Low = ReadDigits(low);
    m_High = ReadDigits(high);
    m_Current = m_Low;
    m_Width = static_cast<int>(std::min(low.size(), high.size()));
    m_Tail = tail;
}

CNameRangeItem::CNameRangeItem(const CNameRangeItem& other)
    : CObject(),
      m_Parent(other.m_Parent),
      m_Width(other.m_Width),
      m_Low(other.m_Low),
      m_Current(other.m_Current),
      m_Stem(other.m_Stem),
      m_High(other.m_High),
      m_Tail(other.m_Tail)
{
}

CString CNameRangeItem::FormatName(int number) const
{
    CString name = m_Stem;
    if (IsPlain())
        return name;
    AppendNumber(name, number, m_Width);
    name += m_Tail;
    name.TrimRight(u' ');
    return name;
}

CString CNameRangeItem::Format(const CString& start, const CString& end,
                               const CString& separator) const
{
    if (IsSingle())
        return FormatName(m_Low);
    CString text = m_Stem + start;
    AppendNumber(text, m_Low, m_Width);
    text += separator;
    AppendNumber(text, m_High, m_Width);
    return text + end + m_Tail;
}

CString CNameRangeItem::Format() const
{
    return Format(CString(m_Parent->GetRangeStartChar()), CString(m_Parent->GetRangeEndChar()),
                  CString(m_Parent->GetRangeSepChar()));
}

bool CNameRangeItem::Contains(std::u16string_view name, bool caseSensitive, int& number) const
{
    const std::u16string_view stem = m_Stem.View();
    number = -1;
    if (IsPlain())
        return IsSameName(name, stem, caseSensitive);

    const std::u16string_view tail = CutBlanks(m_Tail.View());
    if (name.size() <= stem.size() + tail.size())
        return false;
    const std::u16string_view digits =
        name.substr(stem.size(), name.size() - stem.size() - tail.size());
    if (!IsPrintedAt(digits, m_Width) || !std::all_of(digits.begin(), digits.end(), IsDigit))
        return false;
    number = ReadDigits(digits);
    return number >= GetLeast() && number <= GetMost() &&
           IsSameName(name.substr(0, stem.size()), stem, caseSensitive) &&
           IsSameName(name.substr(name.size() - tail.size()), tail, caseSensitive);
}

bool CNameRangeItem::TakeName(CString& name)
{
    name = FormatName(m_Current);
    if (m_Current == m_High)
        return false;
    m_Current += m_Low <= m_High ? 1 : -1;
    return true;
}

} // namespace utility
