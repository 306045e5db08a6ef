#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/String.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

template <typename TIsMember>
int FirstOutside(std::u16string_view text, TIsMember isMember)
{
    const auto place = std::find_if_not(text.begin(), text.end(), isMember);
    return static_cast<int>(place - text.begin());
}

template <typename TIsMember>
int BehindLastOutside(std::u16string_view text, TIsMember isMember)
{
    const auto place = std::find_if_not(text.rbegin(), text.rend(), isMember);
    return static_cast<int>(text.rend() - place);
}

auto IsMemberOf(std::u16string_view set)
{
    return [set](char16_t unit)
    {
        return units::IsOneOf(unit, set);
    };
}

} // namespace

void CString::MakeUpper()
{
    if (FirstOutside(View(), [](char16_t unit) { return ToUpper(unit) == unit; }) == GetLength())
        return;
    MakeOwn(GetLength());
    std::transform(m_Text, m_Text + GetLength(), m_Text, ToUpper);
}

void CString::MakeLower()
{
    if (FirstOutside(View(), [](char16_t unit) { return ToLower(unit) == unit; }) == GetLength())
        return;
    MakeOwn(GetLength());
    std::transform(m_Text, m_Text + GetLength(), m_Text, ToLower);
}

CString& CString::Trim()
{
    return TrimRight().TrimLeft();
}

CString& CString::Trim(char16_t unit)
{
    return TrimRight(unit).TrimLeft(unit);
}

CString& CString::Trim(const char16_t* set)
{
    return TrimRight(set).TrimLeft(set);
}

CString& CString::TrimLeft()
{
    KeepRange(FirstOutside(View(), IsSpace), GetLength());
    return *this;
}

CString& CString::TrimLeft(char16_t unit)
{
    KeepRange(FirstOutside(View(), IsMemberOf({&unit, 1})), GetLength());
    return *this;
}

CString& CString::TrimLeft(const char16_t* set)
{
    KeepRange(FirstOutside(View(), IsMemberOf(units::View(set))), GetLength());
    return *this;
}

CString& CString::TrimRight()
{
    KeepRange(0, BehindLastOutside(View(), IsSpace));
    return *this;
}

CString& CString::TrimRight(char16_t unit)
{
    KeepRange(0, BehindLastOutside(View(), IsMemberOf({&unit, 1})));
    return *this;
}

CString& CString::TrimRight(const char16_t* set)
{
    KeepRange(0, BehindLastOutside(View(), IsMemberOf(units::View(set))));
    return *this;
}

int CString::Insert(int index, char16_t unit)
{
    ReplaceRange(std::clamp(index, 0, GetLength()), 0, {&unit, 1});
    return GetLength();
}

int CString::Insert(int index, const char16_t* text)
{
    ReplaceRange(std::clamp(index, 0, GetLength()), 0, units::View(text));
    return GetLength();
}

int CString::Delete(int index, int count)
{
    index = std::clamp(index, 0, GetLength());
    ReplaceRange(index, std::clamp(count, 0, GetLength() - index), {});
    return GetLength();
}

int CString::Remove(char16_t unit)
{
    if (Find(unit) < 0)
        return 0;
    MakeOwn(GetLength());
    const int length = GetLength();
    const int left = static_cast<int>(std::remove(m_Text, m_Text + length, unit) - m_Text);
    GetBlock()->SetLength(left);
    return length - left;
}

int CString::Replace(char16_t from, char16_t to)
{
    if (from == to || Find(from) < 0)
        return 0;
    MakeOwn(GetLength());
    const auto count = std::count(m_Text, m_Text + GetLength(), from);
    std::replace(m_Text, m_Text + GetLength(), from, to);
    return static_cast<int>(count);
}

int CString::Replace(const char16_t* from, const char16_t* to)
{
    const std::u16string_view wanted = units::View(from);
    std::size_t place = wanted.empty() ? units::NOT_FOUND : units::Find(View(), wanted, 0);
    if (place == units::NOT_FOUND)
        return 0;

    const std::u16string_view source = View();
    const std::u16string_view substitute = units::View(to);
    CString result;
    result.Preallocate(GetLength());
    std::size_t taken = 0;
    int count = 0;
    for (; place != units::NOT_FOUND; place = units::Find(source, wanted, taken))
    {
        result += source.substr(taken, place - taken);
        result += substitute;
        taken = place + wanted.size();
        ++count;
    }
    result += source.substr(taken);
    *this = std::move(result);
    return count;
}

void CString::KeepRange(int first, int last)
{
    if (first >= last)
        return Empty();
    if (first == 0 && last == GetLength())
        return;

    const int count = last - first;
    if (GetBlock()->IsShared())
    {
        *this = CString(m_Text + first, count);
        return;
    }
    std::memmove(m_Text, m_Text + first, static_cast<std::size_t>(count) * sizeof(char16_t));
    GetBlock()->SetLength(count);
}

} // namespace utility
