#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/names/NameParts.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

constexpr std::int64_t FEW = 64; // names of an item that are rather tried one by one
constexpr int NUMBER_DIGITS = 10;
constexpr std::int64_t TOO_LARGE = 100'000'000'000; // more than any number of ten digits

std::int64_t PowerOfTen(int exponent)
{
    std::int64_t power = 1;
    for (; exponent > 0 && power < TOO_LARGE; --exponent)
        power *= 10;
    return power;
}

/// The names of one length of an item: where the digits stand, and which numbers print so.
struct CNameForm
{
    CNameForm(const CNameRangeItem& item, int length)
        : m_Stem(item.m_Stem.View()),
          m_Tail(CutBlanks(item.m_Tail.View())),
          m_Start(static_cast<int>(m_Stem.size())),
          m_End(length - static_cast<int>(m_Tail.size()))
    {
        const int digits = m_End - m_Start;
        if (digits < item.m_Width || (digits > item.m_Width && digits > NUMBER_DIGITS))
            return;
        m_Least = std::max<std::int64_t>(item.GetLeast(),
                                         digits > item.m_Width ? PowerOfTen(digits - 1) : 0);
        m_Most = std::min<std::int64_t>(item.GetMost(), PowerOfTen(digits) - 1);
    }

    bool IsDigitPlace(int index) const { return index >= m_Start && index < m_End; }
    char16_t FixedAt(int index) const
    {
        return index < m_Start ? m_Stem[static_cast<std::size_t>(index)]
                               : m_Tail[static_cast<std::size_t>(index - m_End)];
    }

    std::u16string_view m_Stem;
    std::u16string_view m_Tail;
    int m_Start;
    int m_End;
    std::int64_t m_Least = 0;
    std::int64_t m_Most = -1; // below the least: no name has that length
};

/// Leaves of a form's numbers those whose digits read as the other's fixed text demands, and then
/// their part that both share; false if none is left.
bool NarrowToShared(const CNameForm& form, const CNameForm& other, int start, int end,
                    std::int64_t& least, std::int64_t& most)
{
    std::int64_t front = 0;
    std::int64_t back = 0;
    for (int index = form.m_Start; index < form.m_End; ++index)
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
        return front >= form.m_Least && front <= form.m_Most;

    const std::int64_t shared = PowerOfTen(end - start);
    const std::int64_t behind = PowerOfTen(form.m_End - end);
    const auto divideUp = [&](std::int64_t value)
    {
        return value <= 0 ? 0 : (value + behind - 1) / behind;
    };
    if (form.m_Most < back || front >= TOO_LARGE || back >= TOO_LARGE ||
        front * (shared / 10) > form.m_Most)
        return false;
    const std::int64_t base = front * shared;
    least = std::max(least, divideUp(form.m_Least - back) - base);
    most = std::min(most, (form.m_Most - back) / behind - base);
    most = std::min(most, shared - 1);
    return least <= most;
}

/// Whether names of one length are common to both.
bool FormsOverlap(const CNameForm& left, const CNameForm& right, int length)
{
    if (left.m_Least > left.m_Most || right.m_Least > right.m_Most)
        return false;
    for (int index = 0; index < length; ++index)
    {
        if (!left.IsDigitPlace(index) && !right.IsDigitPlace(index) &&
            ToUpper(left.FixedAt(index)) != ToUpper(right.FixedAt(index)))
            return false;
    }
    const int start = std::max(left.m_Start, right.m_Start);
    const int end = std::max(start, std::min(left.m_End, right.m_End));
    std::int64_t least = 0;
    std::int64_t most = TOO_LARGE;
    return NarrowToShared(left, right, start, end, least, most) &&
           NarrowToShared(right, left, start, end, least, most);
}

/// Item with item: at most ten lengths, however many the names.
bool ItemsOverlap(const CNameRangeItem& left, const CNameRangeItem& right)
{
    const int fixed =
        left.m_Stem.GetLength() + static_cast<int>(CutBlanks(left.m_Tail.View()).size());
    for (int digits = left.m_Width; digits <= std::max(left.m_Width, NUMBER_DIGITS); ++digits)
    {
        const int length = fixed + digits;
        if (FormsOverlap(CNameForm(left, length), CNameForm(right, length), length))
            return true;
    }
    return false;
}

} // namespace

/// Tries the names of small items in the other range; the large ones are left in `large`.
bool CNameRange::SharesSmallItem(const CNameRange& other,
                                 std::vector<const CNameRangeItem*>& large) const
{
    for (POSITION position = m_Items.GetHeadPosition(); position;)
    {
        const CNameRangeItem& item = NextOf(position);
        if (item.GetCount() > FEW)
        {
            large.push_back(&item);
            continue;
        }
        for (int number = item.GetLeast(); number <= item.GetMost(); ++number)
        {
            if (other.Contains(item.FormatName(number)))
                return true;
        }
    }
    return false;
}

bool CNameRange::IsNameOverlap(const CString& left, const CString& right, char16_t rangeStart,
                               char16_t rangeEnd, char16_t rangeSep, char16_t itemSep)
{
    CNameRange first(rangeStart, rangeEnd, rangeSep, itemSep, false, false);
    CNameRange second(rangeStart, rangeEnd, rangeSep, itemSep, false, false);
    first.SetString(left);
    second.SetString(right);
    std::vector<const CNameRangeItem*> firstLarge;
    std::vector<const CNameRangeItem*> secondLarge;
    if (first.SharesSmallItem(second, firstLarge) || second.SharesSmallItem(first, secondLarge))
        return true;
    for (const CNameRangeItem* item : firstLarge)
    {
        if (std::any_of(secondLarge.begin(), secondLarge.end(),
                        [&](const CNameRangeItem* other) { return ItemsOverlap(*item, *other); }))
            return true;
    }
    return false;
}

} // namespace utility
