#include "platform/base/String.h"

#include "platform/base/Encoding.h"
#include "platform/base/UnitSearch.h"
#include "platform/base/collections/BoundsCheck.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace utility
{

namespace
{

// Lengths are ints, so a longer text is one that memory does not hold.
int CheckedLength(std::size_t length)
{
    if (length >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw std::bad_alloc();
    return static_cast<int>(length);
}

void CopyUnits(char16_t* target, const char16_t* source, std::size_t count)
{
    if (count != 0)
        std::memmove(target, source, count * sizeof(char16_t));
}

CString Join(std::u16string_view left, std::u16string_view right)
{
    CString result;
    result.Preallocate(CheckedLength(left.size() + right.size()));
    result += left;
    result += right;
    return result;
}

} // namespace

CString::CString(const char16_t* text) : CString(units::View(text)) {}

CString::CString(const char16_t* text, int length) : CString()
{
    if (text && length > 0)
        Assign({text, static_cast<std::size_t>(length)});
}

CString::CString(std::u16string_view text) : CString()
{
    Assign(text);
}

CString::CString(char16_t unit, int count) : CString()
{
    if (count <= 0)
        return;
    m_Text = CStringBuffer::Allocate(count);
    std::fill_n(m_Text, count, unit);
    GetBlock()->SetLength(count);
}

CString::CString(const char* bytes)
    : CString(FromBytes(CP_ACP, bytes ? std::string_view(bytes) : std::string_view()))
{
}

CString::CString(const char* bytes, int length) : CString()
{
    if (bytes && length > 0)
        *this = FromBytes(CP_ACP, {bytes, static_cast<std::size_t>(length)});
}

CString& CString::operator=(const CString& other) noexcept
{
    other.GetBlock()->AddHolder();
    GetBlock()->RemoveHolder();
    m_Text = other.m_Text;
    return *this;
}

CString& CString::operator=(const char16_t* text)
{
    return *this = units::View(text);
}

CString& CString::operator=(std::u16string_view text)
{
    Assign(text);
    return *this;
}

CString& CString::operator=(char16_t unit)
{
    return *this = std::u16string_view(&unit, 1);
}

char16_t CString::GetAt(int index) const
{
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return m_Text[index];
}

void CString::SetAt(int index, char16_t unit)
{
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    MakeOwn(GetLength());
    m_Text[index] = unit;
}

void CString::Empty() noexcept
{
    GetBlock()->RemoveHolder();
    m_Text = CStringBuffer::GetEmpty();
}

CString& CString::operator+=(const CString& text)
{
    if (IsEmpty() && GetBlock()->GetCapacity() < text.GetLength())
        return *this = text; // shares the block
    return *this += text.View();
}

CString& CString::operator+=(const char16_t* text)
{
    return *this += units::View(text);
}

CString& CString::operator+=(std::u16string_view text)
{
    const int length = GetLength();
    const int newLength = CheckedLength(static_cast<std::size_t>(length) + text.size());
    if (newLength == length)
        return *this;
    const CString left = GrowFor(newLength);
    CopyUnits(m_Text + length, text.data(), text.size());
    GetBlock()->SetLength(newLength);
    return *this;
}

void CString::Append(const char16_t* text, int length)
{
    if (text && length > 0)
        *this += std::u16string_view(text, static_cast<std::size_t>(length));
}

char16_t* CString::GetBuffer(int length)
{
    MakeOwn(std::max(length, GetLength()));
    return m_Text;
}

char16_t* CString::GetBufferSetLength(int length)
{
    GetBuffer(length);
    GetBlock()->SetLength(std::max(length, 0));
    return m_Text;
}

void CString::ReleaseBuffer(int length)
{
    CStringBuffer* block = GetBlock();
    if (block->IsShared())
        return; // nothing was asked for writing
    if (length < 0)
    {
        const std::u16string_view whole(m_Text, static_cast<std::size_t>(block->GetCapacity()));
        length = static_cast<int>(std::min(units::Find(whole, u'\0'), whole.size()));
    }
    block->SetLength(std::min(length, block->GetCapacity()));
}

void CString::Preallocate(int length)
{
    MakeOwn(std::max(length, GetLength()));
}

void CString::Assign(std::u16string_view text)
{
    const int length = CheckedLength(text.size());
    if (length == 0)
        return Empty();
    CString left; // the text may be a piece of this one
    if (GetBlock()->IsShared() || GetBlock()->GetCapacity() < length)
        left.m_Text = std::exchange(m_Text, CStringBuffer::Allocate(length));
    CopyUnits(m_Text, text.data(), text.size());
    GetBlock()->SetLength(length);
}

CString CString::MakeOwn(int capacity)
{
    CString left;
    if (!GetBlock()->IsShared() && GetBlock()->GetCapacity() >= capacity)
        return left;
    const int length = GetLength();
    left.m_Text = std::exchange(m_Text, CStringBuffer::Allocate(capacity));
    CopyUnits(m_Text, left.m_Text, static_cast<std::size_t>(length));
    GetBlock()->SetLength(length);
    return left;
}

CString CString::GrowFor(int length)
{
    const int capacity = GetBlock()->GetCapacity();
    if (length <= capacity)
        return MakeOwn(length);
    // Half as much again, so that appending costs the same for each unit.
    const std::int64_t grown = std::max<std::int64_t>(length, capacity + capacity / 2LL);
    constexpr std::int64_t LIMIT = std::numeric_limits<int>::max() - 1;
    return MakeOwn(static_cast<int>(std::min(grown, LIMIT)));
}

void CString::ReplaceRange(int first, int count, std::u16string_view text)
{
    if (count == 0 && text.empty())
        return;
    const CString substitute(text); // it may be a piece of this one
    const int length = GetLength();
    const int behind = length - first - count;
    const int newLength = CheckedLength(static_cast<std::size_t>(length - count) + text.size());
    GrowFor(std::max(length, newLength));
    CopyUnits(m_Text + newLength - behind, m_Text + first + count,
              static_cast<std::size_t>(behind));
    CopyUnits(m_Text + first, substitute, static_cast<std::size_t>(substitute.GetLength()));
    GetBlock()->SetLength(newLength);
}

CString operator+(const CString& left, const CString& right)
{
    return Join(left.View(), right.View());
}

CString operator+(const CString& left, const char16_t* right)
{
    return Join(left.View(), units::View(right));
}

CString operator+(const char16_t* left, const CString& right)
{
    return Join(units::View(left), right.View());
}

CString operator+(const CString& left, char16_t right)
{
    return Join(left.View(), {&right, 1});
}

CString operator+(char16_t left, const CString& right)
{
    return Join({&left, 1}, right.View());
}

} // namespace utility
