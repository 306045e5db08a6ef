#include "text/names/NameRangeItem.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/NumberText.h"
#include "text/names/NameRange.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace utility
{

namespace
{

constexpr std::size_t NUMBER_DIGITS = 10; // of the largest number

bool SameText(std::u16string_view left, std::u16string_view right, bool caseSensitive)
{
    if (caseSensitive || left.size() != right.size())
        return left == right;
    return std::equal(left.begin(), left.end(), right.begin(),
                      [](char16_t a, char16_t b) { return ToUpper(a) == ToUpper(b); });
}

} // namespace

void AppendNumber(CString& text, int number, int width)
{
    std::array<char, NUMBER_DIGITS + 1> digits;
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<int>(end - digits.data());
    if (width > count)
        text += CString(u'0', width - count);
    for (const char* digit = digits.data(); digit != end; ++digit)
        text += static_cast<char16_t>(*digit);
}

bool IsPrintedAt(std::u16string_view digits, int width)
{
    const auto least = static_cast<std::size_t>(width);
    return digits.size() == least || (digits.size() > least && digits.front() != u'0');
}

std::u16string_view CutBlanks(std::u16string_view text)
{
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

CNameRangeItem::CNameRangeItem(CNameRange* parent, const CString& stem, const CString& low,
                               const CString& high, const CString& tail)
    : m_Parent(parent),
      m_Stem(stem)
{
    if (low.IsEmpty())
        return;
    m_Low = wcstol(low, nullptr, 10);
    m_High = wcstol(high, nullptr, 10);
    m_Current = m_Low;
    m_Width = std::min(low.GetLength(), high.GetLength());
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

bool CNameRangeItem::Contains(const CString& name, bool caseSensitive, int& number) const
{
    const std::u16string_view text = name.View();
    const std::u16string_view stem = m_Stem.View();
    number = -1;
    if (IsPlain())
        return SameText(text, stem, caseSensitive);

    const std::u16string_view tail = CutBlanks(m_Tail.View());
    if (text.size() <= stem.size() + tail.size())
        return false;
    const std::u16string_view digits =
        text.substr(stem.size(), text.size() - stem.size() - tail.size());
    if (!IsPrintedAt(digits, m_Width) || !std::all_of(digits.begin(), digits.end(), IsDigit) ||
        !SameText(text.substr(0, stem.size()), stem, caseSensitive) ||
        !SameText(text.substr(text.size() - tail.size()), tail, caseSensitive))
        return false;

    number = wcstol(CString(digits), nullptr, 10);
    return number >= GetLeast() && number <= GetMost();
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
