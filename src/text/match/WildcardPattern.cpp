#include "text/match/WildcardPattern.h"

#include "platform/base/CaseFold.h"
#include "text/match/WildcardChars.h"
#include "text/match/WildcardUnit.h"

#include <algorithm>

namespace utility
{

namespace
{

struct CItem
{
    char16_t m_Letter;
    EWildcard m_Kind;
    BYTE m_Classes;
};

/// The items by letter; a capital that is not in the table is as its small letter.
constexpr CItem ITEMS[] = {
    {u'c', EWildcard::Unit, UNIT_LETTER},
    {u'C', EWildcard::Unit, UNIT_UPPER},
    {u'd', EWildcard::Unit, UNIT_DIGIT},
    {u'i', EWildcard::Run, UNIT_DIGIT},
    {u'f', EWildcard::RealNumber, UNIT_DIGIT},
    {u'a', EWildcard::Run, UNIT_LETTER},
    {u'A', EWildcard::Run, UNIT_UPPER},
    {u's', EWildcard::Run, UNIT_LETTER | UNIT_DIGIT},
    {u'S', EWildcard::Run, UNIT_UPPER | UNIT_DIGIT},
    {u'u', EWildcard::UnitName, UNIT_ANY},
    {u'p', EWildcard::Prefix, UNIT_ANY},
    {u'P', EWildcard::CapitalPrefix, UNIT_ANY},
    {u'[', EWildcard::Range, 0}, // as its bounds say
    {GetWildOpenChar(), EWildcard::Open, UNIT_ANY | UNIT_END},
    {GetWildCloseChar(), EWildcard::Close, UNIT_ANY | UNIT_END},
    {GetWildNotChar(), EWildcard::Not, UNIT_ANY | UNIT_END},
};

const CItem* FindItem(char16_t letter)
{
    const auto find = [](char16_t wanted)
    {
        return std::find_if(std::begin(ITEMS), std::end(ITEMS),
                            [wanted](const CItem& item) { return item.m_Letter == wanted; });
    };
    const CItem* item = find(letter);
    if (item == std::end(ITEMS))
        item = find(ToLower(letter));
    return item == std::end(ITEMS) ? nullptr : item;
}

} // namespace

CWildcardPattern::CWildcardPattern(std::u16string_view pattern, bool caseSensitive)
    : m_Units(pattern),
      m_CaseSensitive(caseSensitive),
      m_HasAlternatives(pattern.find(GetWildOrChar()) != pattern.npos),
      m_Places(pattern.size() + 1)
{
    const std::uint32_t end = GetLength();
    m_Places[end] = {EWildcard::End, UNIT_END, 0, 0, 0, end, end, end, 0};

    // From the end backwards: a skip that leaves its first place goes on with a known one.
    CNumberFinder numbers(m_Units.c_str());
    std::uint32_t closing = end;
    for (std::uint32_t place = end; place-- > 0;)
    {
        ReadPlace(place, numbers);
        if (m_Places[place].m_Kind == EWildcard::Close)
            closing = place;
        FindSkips(place, closing);
    }
}

void CWildcardPattern::ReadPlace(std::uint32_t place, CNumberFinder& numbers)
{
    CWildcardPlace& read = m_Places[place];
    read.m_Kind = EWildcard::Plain;
    read.m_Classes = 0;
    read.m_Unit = m_CaseSensitive ? m_Units[place] : ToUpper(m_Units[place]);
    read.m_OtherUnit = m_CaseSensitive ? m_Units[place] : ToLower(read.m_Unit);
    switch (m_Units[place])
    {
    case GetWildAnyChar():
        read.m_Kind = EWildcard::AnyRun;
        read.m_Classes = UNIT_ANY | UNIT_END;
        break;
    case u'?':
        read.m_Kind = EWildcard::AnyUnit;
        read.m_Classes = UNIT_ANY;
        break;
    case GetWildOrChar():
        read.m_Kind = EWildcard::Or;
        read.m_Classes = UNIT_ANY | UNIT_END;
        break;
    case GetWildFormatChar():
        ReadItem(place, numbers);
        break;
    default:
        break;
    }
}

void CWildcardPattern::ReadItem(std::uint32_t place, CNumberFinder& numbers)
{
    const CItem* const item = FindItem(m_Units.c_str()[place + 1]);
    if (!item)
        return;
    CWildcardPlace& read = m_Places[place];
    read.m_Kind = item->m_Kind;
    read.m_Classes = item->m_Classes;
    if (item->m_Kind != EWildcard::Range)
        return;
    const CWildcardRange& range = m_Ranges.emplace_back(m_Units.c_str(), numbers, place + 2);
    read.m_Classes = range.GetFirstClasses();
    read.m_Range = static_cast<std::uint32_t>(m_Ranges.size() - 1);
}

/// `closing` is the first %} from the place on, or the end. What stands behind is known already.
void CWildcardPattern::FindSkips(std::uint32_t place, std::uint32_t closing)
{
    const auto behindClosing = [end = GetLength()](std::uint32_t closed)
    {
        return std::min(closed + 2, end);
    };
    CWildcardPlace& here = m_Places[place];
    const EWildcard kind = here.m_Kind;
    const CWildcardPlace& behind =
        m_Places[kind == EWildcard::Open ? behindClosing(closing) : place + 1];
    here.m_NegationEnd = behind.m_NegationEnd;
    if (kind == EWildcard::Or || kind == EWildcard::Close || kind == EWildcard::Not)
        here.m_NegationEnd = place;

    if (kind == EWildcard::Close || (kind == EWildcard::Or && (behind.m_Kind == EWildcard::Close ||
                                                               behind.m_Kind == EWildcard::End)))
    {
        // An empty last alternative is none.
        here.m_Next = 0;
        here.m_AfterGroup = behindClosing(closing);
        here.m_AfterAlternatives = here.m_AfterGroup;
        return;
    }
    const bool isOr = kind == EWildcard::Or;
    here.m_Next = isOr ? place + 1 : behind.m_Next;
    // On purpose a unit further: a group directly behind a | is entered, and its %} ends the walk.
    here.m_AfterGroup = isOr ? m_Places[place + 2].m_AfterGroup : behind.m_AfterGroup;
    here.m_AfterAlternatives = behind.m_AfterAlternatives;
}

} // namespace utility
