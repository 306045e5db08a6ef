#pragma once

#include "platform/base/Export.h"
#include "platform/base/FormatArgument.h"
#include "platform/base/StringBuffer.h"
#include "platform/base/Types.h"

#include <array>
#include <functional>
#include <string_view>
#include <utility>

namespace utility
{

/// The text value: a counted, zero-terminated sequence of 16-bit units with value semantics.
///
/// One pointer wide; copies share a block with an atomic count and part when one is changed, so
/// copies may be used on different threads, but one object by one thread at a time. Indexes and
/// lengths count units. An index out of bounds in `GetAt`, `SetAt` or `[]` raises
/// `CInvalidArgException`; an operation on a range clips the range to the text. A null pointer
/// counts as the empty text wherever a text is taken.
class UTILITY_CORE_API CString
{
public:
    CString() noexcept : m_Text(CStringBuffer::GetEmpty()) {}
    CString(const CString& other) noexcept : m_Text(other.m_Text) { GetBlock()->AddHolder(); }
    CString(CString&& other) noexcept : m_Text(other.m_Text)
    {
        other.m_Text = CStringBuffer::GetEmpty();
    }
    CString(const char16_t* text);
    CString(const char16_t* text, int length);
    CString(std::u16string_view text);
    explicit CString(char16_t unit, int count = 1);
    /// From bytes of the default page.
    explicit CString(const char* bytes);
    CString(const char* bytes, int length);
    ~CString() { GetBlock()->RemoveHolder(); }

    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept
    {
        std::swap(m_Text, other.m_Text);
        return *this;
    }
    CString& operator=(const char16_t* text);
    CString& operator=(std::u16string_view text);
    CString& operator=(char16_t unit);

    // Reading
    int GetLength() const noexcept { return CStringBuffer::Of(m_Text)->GetLength(); }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    char16_t GetAt(int index) const;
    /// Also the terminator may be read, at the length.
    char16_t operator[](int index) const { return GetAt(index); }
    const char16_t* GetString() const noexcept { return m_Text; }
    operator const char16_t*() const noexcept { return m_Text; }
    std::u16string_view View() const noexcept
    {
        return std::u16string_view(m_Text, static_cast<std::size_t>(GetLength()));
    }

    // Changing
    void Empty() noexcept;
    void SetAt(int index, char16_t unit);
    CString& operator+=(const CString& text);
    CString& operator+=(const char16_t* text);
    CString& operator+=(std::u16string_view text);
    CString& operator+=(char16_t unit)
    {
        CStringBuffer* block = GetBlock();
        const int length = block->GetLength();
        if (block->IsShared() || length == block->GetCapacity())
            return *this += std::u16string_view(&unit, 1);
        m_Text[length] = unit;
        block->SetLength(length + 1);
        return *this;
    }
    void AppendChar(char16_t unit) { *this += unit; }
    void Append(const CString& text) { *this += text; }
    void Append(const char16_t* text) { *this += text; }
    void Append(const char16_t* text, int length);
    void MakeUpper();
    void MakeLower();
    CString& Trim();
    CString& Trim(char16_t unit);
    CString& Trim(const char16_t* set);
    CString& TrimLeft();
    CString& TrimLeft(char16_t unit);
    CString& TrimLeft(const char16_t* set);
    CString& TrimRight();
    CString& TrimRight(char16_t unit);
    CString& TrimRight(const char16_t* set);
    /// Both give the new length.
    int Insert(int index, char16_t unit);
    int Insert(int index, const char16_t* text);
    int Delete(int index, int count = 1);
    /// Both give the number of places changed.
    int Remove(char16_t unit);
    int Replace(char16_t from, char16_t to);
    int Replace(const char16_t* from, const char16_t* to);

    // Comparing: by units, and by lower-cased units of the library's fold. Results are signs.
    int Compare(const char16_t* text) const;
    int CompareNoCase(const char16_t* text) const;

    // Parts; ranges are clipped
    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Right(int count) const;
    CString SpanIncluding(const char16_t* set) const;
    CString SpanExcluding(const char16_t* set) const;
    /// The next token from `start` up to any unit of `separators`; empty separators between tokens
    /// are skipped. `start` moves behind the token and is -1, with an empty result, when none is
    /// left.
    CString Tokenize(const char16_t* separators, int& start) const;

    // Finding: an index or -1
    int Find(char16_t unit, int start = 0) const;
    int Find(const char16_t* text, int start = 0) const;
    int ReverseFind(char16_t unit) const;
    int FindOneOf(const char16_t* set) const;

    // Formatting: see PrintFormat.h and MessageFormat.h for the two dialects
    template <typename... TArguments>
    void Format(const char16_t* format, const TArguments&... arguments)
    {
        const std::array<CFormatArgument, sizeof...(TArguments)> list{
            CFormatArgument(arguments)...};
        FormatV(format, list);
    }
    template <typename... TArguments>
    void AppendFormat(const char16_t* format, const TArguments&... arguments)
    {
        CString text;
        text.Format(format, arguments...);
        *this += text;
    }
    template <typename... TArguments>
    void FormatMessage(const char16_t* format, const TArguments&... arguments)
    {
        const std::array<CFormatArgument, sizeof...(TArguments)> list{
            CFormatArgument(arguments)...};
        FormatMessageV(format, list);
    }
    void FormatV(const char16_t* format, CFormatArguments arguments);
    void FormatMessageV(const char16_t* format, CFormatArguments arguments);

    /// Takes the table's text of that id; false, and the text is left alone, if there is none.
    bool LoadString(UINT id);

    // The text as a writable buffer of at least `length` units and a terminator, until
    // ReleaseBuffer
    char16_t* GetBuffer(int length = 0);
    char16_t* GetBufferSetLength(int length);
    /// -1 takes the length up to the first zero unit.
    void ReleaseBuffer(int length = -1);
    /// Room for `length` units, so that appending up to there allocates nothing more.
    void Preallocate(int length);

    // By units. Found through a CString alone, so that they join no comparison of other texts.
    UTILITY_CORE_API friend bool operator==(const CString& left, const CString& right) noexcept;
    UTILITY_CORE_API friend bool operator==(const CString& left, const char16_t* right) noexcept;
    friend bool operator==(const CString& left, std::u16string_view right) noexcept
    {
        return left.View() == right;
    }
    UTILITY_CORE_API friend bool operator<(const CString& left, const CString& right) noexcept;

private:
    CStringBuffer* GetBlock() const noexcept { return CStringBuffer::Of(m_Text); }
    void Assign(std::u16string_view text);
    /// Makes this the only holder of a block of at least that capacity, the text kept. Gives the
    /// block left behind, for a text to be put in may be a piece of it.
    CString MakeOwn(int capacity);
    CString GrowFor(int length);
    void KeepRange(int first, int last);
    void ReplaceRange(int first, int count, std::u16string_view text);

    char16_t* m_Text; // into a block, behind its count, length and capacity
};

UTILITY_CORE_API CString operator+(const CString& left, const CString& right);
UTILITY_CORE_API CString operator+(const CString& left, const char16_t* right);
UTILITY_CORE_API CString operator+(const char16_t* left, const CString& right);
UTILITY_CORE_API CString operator+(const CString& left, char16_t right);
UTILITY_CORE_API CString operator+(char16_t left, const CString& right);

inline CFormatArgument::CFormatArgument(const CString& text)
    : m_Kind(EKind::Text),
      m_Text(text.View())
{
}

} // namespace utility

template <>
struct std::hash<utility::CString>
{
    std::size_t operator()(const utility::CString& text) const noexcept
    {
        return std::hash<std::u16string_view>()(text.View());
    }
};
