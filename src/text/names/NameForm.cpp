#include "text/names/NameForm.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/names/NameParts.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int NUMBER_DIGITS = 10;
constexpr std::int64_t TOO_LARGE = 100'000'000'000; // more than any number of ten digits
constexpr std::uint64_t HASH_START = 0xCBF29CE484222325;
constexpr std::uint64_t HASH_FACTOR = 0x100000001B3;

std::int64_t PowerOfTen(int exponent)
{
    std::int64_t power = 1;
    for (; exponent > 0 && power < TOO_LARGE; --exponent)
        power *= 10;
    return power;
}

std::strong_ordering CompareFolded(std::u16string_view left, std::u16string_view right)
{
    for (std::size_t index = 0; index < left.size(); ++index)
    {
        if (ToUpper(left[index]) != ToUpper(right[index]))
            return ToUpper(left[index]) <=> ToUpper(right[index]);
    }
    return std::strong_ordering::equal;
}

} // namespace

CNameForm::CNameForm(const CNameRangeItem& item, int length)
    : m_Stem(item.m_Stem.View()),
      m_Tail(CutBlanks(item.m_Tail.View())),
      m_Start(static_cast<int>(m_Stem.size())),
      m_End(length - static_cast<int>(m_Tail.size()))
{
    const int digits = m_End - m_Start;
    if (digits < item.m_Width || (digits > item.m_Width && digits > NUMBER_DIGITS))
        return;
    m_Least =
        std::max<std::int64_t>(item.GetLeast(), digits > item.m_Width ? PowerOfTen(digits - 1) : 0);
    m_Most = std::min<std::int64_t>(item.GetMost(), PowerOfTen(digits) - 1);
}

char16_t CNameForm::FixedAt(int index) const
{
    return index < m_Start ? m_Stem[static_cast<std::size_t>(index)]
                           : m_Tail[static_cast<std::size_t>(index - m_End)];
}

std::strong_ordering CNameForm::ComparePlace(const CNameForm& other) const
{
    if (GetLength() != other.GetLength())
        return GetLength() <=> other.GetLength();
    return m_Start != other.m_Start ? m_Start <=> other.m_Start : m_End <=> other.m_End;
}

std::strong_ordering CNameForm::CompareText(const CNameForm& other) const
{
    const auto order = CompareFolded(m_Stem, other.m_Stem);
    return order != 0 ? order : CompareFolded(m_Tail, other.m_Tail);
}

/// Leaves of the form's numbers those whose digits read as the other's fixed text demands, and then
/// their part that both share, from `start` to `end`; false if none is left.
bool CNameForm::NarrowToShared(const CNameForm& other, int start, int end, std::int64_t& least,
                               std::int64_t& most) const
{
    std::int64_t front = 0;
    std::int64_t back = 0;
    for (int index = m_Start; index < m_End; ++index)
    {
        if (index >= start && index < end)
            continue;
        const char16_t digit = other.FixedAt(index);
        if (!IsDigit(digit))
            return false;
        std::int64_t& value = index < start || start == end ? front : back;
        value = std::min(value * 10 + (digit - u'0'), TOO_LARGE);
    }
    if (start == end) // all digits stand in the other's fixed text
        return front >= m_Least && front <= m_Most;

    const std::int64_t shared = PowerOfTen(end - start);
    const std::int64_t behind = PowerOfTen(m_End - end);
    const auto divideUp = [&](std::int64_t value)
    {
        return value <= 0 ? 0 : (value + behind - 1) / behind;
    };
    if (m_Most < back || front >= TOO_LARGE || back >= TOO_LARGE || front * (shared / 10) > m_Most)
        return false;
    const std::int64_t base = front * shared;
    least = std::max(least, divideUp(m_Least - back) - base);
    most = std::min(most, (m_Most - back) / behind - base);
    most = std::min(most, shared - 1);
    return least <= most;
}

bool CNameForm::Overlaps(const CNameForm& other) const
{
    if (!HasNames() || !other.HasNames())
        return false;
    for (int index = 0; index < GetLength(); ++index)
    {
        if (!IsDigitPlace(index) && !other.IsDigitPlace(index) &&
            ToUpper(FixedAt(index)) != ToUpper(other.FixedAt(index)))
            return false;
    }
    const int start = std::max(m_Start, other.m_Start);
    const int end = std::max(start, std::min(m_End, other.m_End));
    std::int64_t least = 0;
    std::int64_t most = TOO_LARGE;
    return NarrowToShared(other, start, end, least, most) &&
           other.NarrowToShared(*this, start, end, least, most);
}

void GetNameLengths(const CNameRangeItem& item, int& least, int& most)
{
    const int fixed =
        item.m_Stem.GetLength() + static_cast<int>(CutBlanks(item.m_Tail.View()).size());
    least = fixed + item.m_Width;
    most = fixed + std::max(item.m_Width, NUMBER_DIGITS);
}

std::uint64_t HashOfShape(const CNameRangeItem& item)
{
    std::uint64_t hash = HASH_START;
    bool inDigits = false;
    const auto take = [&](char16_t unit)
    {
        if (inDigits && IsDigit(unit))
            return;
        inDigits = IsDigit(unit);
        hash = (hash ^ (inDigits ? u'0' : ToUpper(unit))) * HASH_FACTOR;
    };
    for (const char16_t unit : item.m_Stem.View())
        take(unit);
    take(u'0'); // the number
    for (const char16_t unit : CutBlanks(item.m_Tail.View()))
        take(unit);
    return hash;
}

} // namespace utility
