#include "text/names/NameForm.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace utility
{

namespace
{

constexpr std::int64_t FEW = 64; // names of an item that are rather tried one by one

/// A form of an item in one of two ranges.
struct CSidedForm
{
    std::uint64_t m_Shape;
    std::size_t m_Side; // 0 or 1
    CNameForm m_Form;
};

using CForms = std::span<const CSidedForm>;

void AppendForms(const std::vector<const CNameRangeItem*>& items, std::size_t side,
                 std::vector<CSidedForm>& forms)
{
    for (const CNameRangeItem* item : items)
    {
        const std::uint64_t shape = HashOfShape(*item);
        int length = 0;
        int most = 0;
        for (GetNameLengths(*item, length, most); length <= most; ++length)
        {
            const CNameForm form(*item, length);
            if (form.HasNames())
                forms.push_back({shape, side, form});
        }
    }
}

bool IsAlikePlaced(const CSidedForm& left, const CSidedForm& right)
{
    return left.m_Shape == right.m_Shape && left.m_Form.ComparePlace(right.m_Form) == 0;
}

bool IsBefore(const CSidedForm& left, const CSidedForm& right)
{
    if (left.m_Shape != right.m_Shape)
        return left.m_Shape < right.m_Shape;
    if (const auto order = left.m_Form.ComparePlace(right.m_Form); order != 0)
        return order < 0;
    if (const auto order = left.m_Form.CompareText(right.m_Form); order != 0)
        return order < 0;
    return left.m_Form.GetLeast() < right.m_Form.GetLeast();
}

/// Cuts the leading run of forms off that `isAlike` with their first.
template <typename TAlike>
CForms TakeRun(CForms& forms, TAlike isAlike)
{
    std::size_t count = 1;
    while (count < forms.size() && isAlike(forms.front(), forms[count]))
        ++count;
    const CForms run = forms.first(count);
    forms = forms.subspan(count);
    return run;
}

/// Of forms whose numbers stand at the same place: equal text, and spans that meet.
bool MeetsInOrder(CForms forms)
{
    std::array<std::int64_t, 2> reach{-1, -1}; // of each side's spans so far
    const CSidedForm* before = nullptr;
    for (const CSidedForm& form : forms)
    {
        if (before && before->m_Form.CompareText(form.m_Form) != 0)
            reach = {-1, -1};
        before = &form;
        if (reach[1 - form.m_Side] >= form.m_Form.GetLeast())
            return true;
        reach[form.m_Side] = std::max(reach[form.m_Side], form.m_Form.GetMost());
    }
    return false;
}

/// Of forms whose numbers stand at different places, as in U[1-200]A2 and U1A[1-200]: each with
/// each, since such items are few.
bool MeetsAcross(CForms forms, CForms others)
{
    for (const CSidedForm& form : forms)
    {
        for (const CSidedForm& other : others)
        {
            if (form.m_Side != other.m_Side && form.m_Form.Overlaps(other.m_Form))
                return true;
        }
    }
    return false;
}

/// Of forms of one shape and length.
bool AnyMeet(CForms forms)
{
    while (!forms.empty())
    {
        const CForms run = TakeRun(forms, IsAlikePlaced);
        if (MeetsInOrder(run) || MeetsAcross(run, forms))
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

    std::vector<CSidedForm> sorted;
    AppendForms(firstLarge, 0, sorted);
    AppendForms(secondLarge, 1, sorted);
    std::sort(sorted.begin(), sorted.end(), IsBefore);
    for (CForms forms = sorted; !forms.empty();)
    {
        const auto isAlike = [](const CSidedForm& one, const CSidedForm& another)
        {
            return one.m_Shape == another.m_Shape &&
                   one.m_Form.GetLength() == another.m_Form.GetLength();
        };
        if (AnyMeet(TakeRun(forms, isAlike)))
            return true;
    }
    return false;
}

} // namespace utility
