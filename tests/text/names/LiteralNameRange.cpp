#include "text/names/LiteralNameRange.h"

#include "text/match/LiteralCompare.h"

#include <algorithm>
#include <cstdlib>

namespace utility
{

namespace
{

constexpr long long NO_NUMBER = 0x7FFFFFFF; // and what larger ones are read as
constexpr auto NONE = std::u16string::npos;

bool IsNumeral(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool IsBlank(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

void TrimText(std::u16string& text)
{
    while (!text.empty() && IsBlank(text.back()))
        text.pop_back();
    while (!text.empty() && IsBlank(text.front()))
        text.erase(0, 1);
}

long long ReadNumber(const std::u16string& digits)
{
    long long number = 0;
    for (char16_t digit : digits)
        number = std::min(number * 10 + (digit - u'0'), NO_NUMBER);
    return number;
}

bool IsBound(const std::u16string& typed, const std::u16string& whole)
{
    return !typed.empty() && std::all_of(typed.begin(), typed.end(), IsNumeral) &&
           ReadNumber(whole) < NO_NUMBER;
}

} // namespace

std::u16string CLiteralNameRange::NumberText(long long number, std::size_t width)
{
    std::u16string text;
    for (char digit : std::to_string(number))
        text += static_cast<char16_t>(digit);
    while (text.size() < width)
        text.insert(0, 1, u'0');
    return text;
}

CLiteralNameRange::CStem CLiteralNameRange::GetStem(const std::u16string& name)
{
    CStem parts;
    parts.m_Stem = name;
    std::size_t last = name.empty() ? 0 : name.size() - 1;
    while (last > 0 && !IsNumeral(name[last]))
        last--;
    if (last == 0)
        return parts;
    std::size_t first = last;
    while (first > 0 && IsNumeral(name[first - 1]))
        first--;
    const long long number = ReadNumber(name.substr(first, last + 1 - first));
    if (number == NO_NUMBER)
        return parts;
    parts.m_Stem = name.substr(0, first);
    parts.m_Number = number;
    parts.m_Width = last + 1 - first;
    parts.m_Tail = name.substr(last + 1);
    return parts;
}

CLiteralNameRange::CStem CLiteralNameRange::GetRangeStem(const std::u16string& name) const
{
    const std::size_t end = name.find(m_Rules.m_End);
    if (end == NONE || end == 0 || end == name.size() - 1)
        return GetStem(name);
    CStem parts = GetStem(name.substr(0, end + 1));
    if (parts.m_Width == 0)
        parts.m_Stem = name;
    else
        parts.m_Tail += name.substr(end + 1);
    return parts;
}

void CLiteralNameRange::SetString(const std::u16string& text)
{
    m_Items.clear();
    std::u16string rest = text;
    m_Valid = true;
    while (rest.find(m_Rules.m_Item) != NONE)
    {
        const std::size_t separator = rest.find(m_Rules.m_Item);
        if (!AddNameItem(rest.substr(0, separator)))
        {
            m_Valid = false;
            return;
        }
        rest = rest.substr(separator + 1);
    }
    if (!rest.empty())
        m_Valid = AddNameItem(rest);
}

bool CLiteralNameRange::AddNameItem(std::u16string entry)
{
    TrimText(entry);
    if (entry.empty())
        return true;
    const std::size_t s = entry.find(m_Rules.m_Start);
    const std::size_t e = entry.find(m_Rules.m_End);
    if (s == NONE || e == NONE || s >= e)
    {
        AddSingleName(entry);
        return true;
    }
    std::u16string prefix = entry.substr(0, s);
    std::u16string digits;
    const CStem parts = GetStem(prefix);
    if (parts.m_Width != 0 && parts.m_Tail.empty())
    {
        digits = prefix.substr(parts.m_Stem.size());
        prefix = parts.m_Stem;
    }
    TrimText(prefix);
    const std::u16string suffix = entry.substr(e + 1);
    std::u16string body = entry.substr(s + 1, e - s - 1);
    while (m_Rules.m_Between != u',' && body.find(u',') != NONE)
    {
        const std::size_t separator = body.find(u',');
        if (!AddMember(prefix, digits, body.substr(0, separator), u""))
            return false;
        body = body.substr(separator + 1);
    }
    return AddMember(prefix, digits, body, suffix);
}

bool CLiteralNameRange::AddMember(const std::u16string& prefix, const std::u16string& digits,
                                  const std::u16string& member, const std::u16string& suffix)
{
    const std::size_t between = member.find(m_Rules.m_Between);
    if (between == NONE)
    {
        AddSingleName(prefix + digits + member + suffix);
        return true;
    }
    std::u16string low = member.substr(0, between);
    std::u16string high = member.substr(between + 1);
    TrimText(low);
    TrimText(high);
    if (!IsBound(low, digits + low) || !IsBound(high, digits + high))
        return false;
    m_Items.push_back({prefix, suffix, ReadNumber(digits + low), ReadNumber(digits + high),
                       digits.size() + std::min(low.size(), high.size())});
    return true;
}

void CLiteralNameRange::AddSingleName(const std::u16string& name)
{
    if (name.empty())
        return;
    const CStem parts = GetRangeStem(name);
    m_Items.push_back({parts.m_Stem, parts.m_Tail, parts.m_Number, parts.m_Number, parts.m_Width});
}

std::vector<std::u16string> CLiteralNameRange::NamesOf(const CItem& item)
{
    if (item.m_Low < 0)
        return {item.m_Stem};
    std::vector<std::u16string> names;
    for (long long current = item.m_Low;; current += item.m_Low <= item.m_High ? 1 : -1)
    {
        std::u16string name = item.m_Stem + NumberText(current, item.m_Width) + item.m_Tail;
        while (name.back() == u' ')
            name.pop_back();
        names.push_back(name);
        if (current == item.m_High)
            return names;
    }
}

long long CLiteralNameRange::NumberOf(const CItem& item, std::size_t index)
{
    const auto steps = static_cast<long long>(index);
    return item.m_Low <= item.m_High ? item.m_Low + steps : item.m_Low - steps;
}

long long CLiteralNameRange::CountNames() const
{
    long long count = 0;
    for (const CItem& item : m_Items)
        count += std::abs(item.m_High - item.m_Low) + 1;
    return count;
}

std::vector<std::u16string> CLiteralNameRange::GetNames() const
{
    std::vector<std::u16string> names;
    for (const CItem& item : m_Items)
    {
        for (const std::u16string& name : NamesOf(item))
            names.push_back(name);
    }
    return names;
}

std::u16string CLiteralNameRange::GetString() const
{
    std::u16string text;
    for (const CItem& item : m_Items)
    {
        if (&item != &m_Items.front())
            text += m_Rules.m_Item;
        if (item.m_Low == item.m_High)
            text += NamesOf(item).front();
        else
            text += item.m_Stem + m_Rules.m_Start + NumberText(item.m_Low, item.m_Width) +
                    m_Rules.m_Between + NumberText(item.m_High, item.m_Width) + m_Rules.m_End +
                    item.m_Tail;
    }
    return text;
}

bool CLiteralNameRange::IsSame(const std::u16string& left, const std::u16string& right) const
{
    return CompareLiterally(left, right, m_Rules.m_CaseSensitive, false, true) == 0;
}

bool CLiteralNameRange::HasName(const CItem& item, const std::u16string& name,
                                std::size_t& index) const
{
    const std::vector<std::u16string> names = NamesOf(item);
    for (index = 0; index < names.size(); ++index)
    {
        if (IsSame(names[index], name))
            return true;
    }
    return false;
}

bool CLiteralNameRange::Contains(const std::u16string& name) const
{
    std::size_t index = 0;
    return std::any_of(m_Items.begin(), m_Items.end(),
                       [&](const CItem& item) { return HasName(item, name, index); });
}

void CLiteralNameRange::Add(const std::u16string& text)
{
    CLiteralNameRange added(m_Rules);
    added.SetString(text);
    for (const std::u16string& name : added.GetNames())
        AddOne(name);
}

void CLiteralNameRange::AddOne(const std::u16string& name)
{
    const CStem parts = GetRangeStem(name);
    if (parts.m_Width == 0)
    {
        AddSingleName(name);
        return;
    }
    const std::size_t first = m_Rules.m_Ordered && !m_Items.empty() ? m_Items.size() - 1 : 0;
    for (std::size_t index = first; index < m_Items.size(); ++index)
    {
        CItem& item = m_Items[index];
        std::size_t ignored = 0;
        if (HasName(item, name, ignored))
            return;
        if (IsSame(item.m_Stem, parts.m_Stem) && IsSame(item.m_Tail, parts.m_Tail) &&
            Grow(item, parts))
            return;
    }
    AddSingleName(name);
}

/// Downward items and plain names never grow: a name that is covered stays so.
bool CLiteralNameRange::Grow(CItem& item, const CStem& name)
{
    if (item.m_Low < 0 || item.m_Low > item.m_High)
        return false;
    if (!m_Rules.m_Ordered && item.m_Low == name.m_Number + 1)
    {
        if (name.m_Width < item.m_Width && std::to_string(item.m_Low).size() == item.m_Width)
            item.m_Width = name.m_Width;
        item.m_Low = name.m_Number;
        Join(item, false);
        return true;
    }
    if (item.m_High == name.m_Number - 1)
    {
        item.m_High = name.m_Number;
        Join(item, true);
        return true;
    }
    if (item.m_Low == item.m_High && item.m_High == name.m_Number + 1)
    {
        item.m_High = name.m_Number; // runs downwards from now on
        return true;
    }
    return false;
}

void CLiteralNameRange::Join(const CItem& grown, bool above)
{
    const auto own = static_cast<std::size_t>(&grown - m_Items.data());
    for (std::size_t index = 0; index < m_Items.size(); ++index)
    {
        const CItem other = m_Items[index];
        if (index == own || other.m_Low < 0 || other.m_Low > other.m_High ||
            !IsSame(other.m_Stem, grown.m_Stem) || !IsSame(other.m_Tail, grown.m_Tail))
            continue;
        const bool touches = above ? other.m_Low <= grown.m_High + 1 && other.m_High >= grown.m_High
                                   : other.m_High >= grown.m_Low - 1 && other.m_Low <= grown.m_Low;
        if (!touches)
            continue;
        CItem& item = m_Items[own];
        item.m_Low = std::min(item.m_Low, other.m_Low);
        item.m_High = std::max(item.m_High, other.m_High);
        item.m_Width = std::min(item.m_Width, other.m_Width);
        m_Items.erase(m_Items.begin() + static_cast<std::ptrdiff_t>(index));
        return;
    }
}

bool CLiteralNameRange::Delete(const std::u16string& text)
{
    CLiteralNameRange deleted(m_Rules);
    deleted.SetString(text);
    bool found = false;
    for (const std::u16string& name : deleted.GetNames())
        found = DeleteOne(name) || found;
    return found;
}

bool CLiteralNameRange::DeleteOne(const std::u16string& name)
{
    for (std::size_t index = 0; index < m_Items.size(); ++index)
    {
        CItem& item = m_Items[index];
        std::size_t place = 0;
        if (!HasName(item, name, place))
            continue;
        if (item.m_Low == item.m_High)
        {
            m_Items.erase(m_Items.begin() + static_cast<std::ptrdiff_t>(index));
            return true;
        }
        const long long step = item.m_Low <= item.m_High ? 1 : -1;
        const long long number = NumberOf(item, place);
        CItem rest = item;
        rest.m_Low = number + step;
        if (number == item.m_Low)
        {
            item.m_Low += step;
            return true;
        }
        const bool splits = number != item.m_High;
        item.m_High = number - step;
        if (splits)
            m_Items.push_back(rest);
        return true;
    }
    return false;
}

} // namespace utility
