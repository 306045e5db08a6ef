#include "platform/base/CaseFold.h"
#include "platform/base/String.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>

namespace utility
{

namespace
{

int AsIndex(std::size_t place)
{
    return place == units::NOT_FOUND ? -1 : static_cast<int>(place);
}

bool HasSameUnits(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() && units::Equal(left.data(), right.data(), left.size());
}

// Units at the start of the text that are in the set, or are not.
int SpanLength(std::u16string_view text, std::u16string_view set, bool inSet)
{
    std::size_t length = 0;
    while (length < text.size() && units::IsOneOf(text[length], set) == inSet)
        ++length;
    return static_cast<int>(length);
}

} // namespace

int CString::Compare(const char16_t* text) const
{
    return CompareUnits(View(), units::View(text));
}

int CString::CompareNoCase(const char16_t* text) const
{
    return utility::CompareNoCase(View(), units::View(text));
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    if (count == GetLength())
        return *this;
    return CString(m_Text + first, count);
}

CString CString::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(const char16_t* set) const
{
    return Left(SpanLength(View(), units::View(set), true));
}

CString CString::SpanExcluding(const char16_t* set) const
{
    return Left(SpanLength(View(), units::View(set), false));
}

CString CString::Tokenize(const char16_t* separators, int& start) const
{
    const std::u16string_view set = units::View(separators);
    if (start >= 0 && start < GetLength())
    {
        const int first = start + SpanLength(View().substr(start), set, true);
        const int count = SpanLength(View().substr(first), set, false);
        if (count > 0)
        {
            start = first + count + 1;
            return Mid(first, count);
        }
    }
    start = -1;
    return CString();
}

int CString::Find(char16_t unit, int start) const
{
    if (start > GetLength())
        return -1;
    start = std::max(start, 0);
    const int place = AsIndex(units::Find(View().substr(start), unit));
    return place < 0 ? -1 : place + start;
}

int CString::Find(const char16_t* text, int start) const
{
    return AsIndex(
        units::Find(View(), units::View(text), static_cast<std::size_t>(std::max(start, 0))));
}

int CString::ReverseFind(char16_t unit) const
{
    int place = GetLength() - 1;
    while (place >= 0 && m_Text[place] != unit)
        --place;
    return place;
}

int CString::FindOneOf(const char16_t* set) const
{
    const int place = SpanLength(View(), units::View(set), false);
    return place == GetLength() ? -1 : place;
}

bool operator==(const CString& left, const CString& right) noexcept
{
    return left.GetString() == right.GetString() || HasSameUnits(left.View(), right.View());
}

bool operator==(const CString& left, const char16_t* right) noexcept
{
    return HasSameUnits(left.View(), units::View(right));
}

bool operator<(const CString& left, const CString& right) noexcept
{
    return CompareUnits(left.View(), right.View()) < 0;
}

} // namespace utility
