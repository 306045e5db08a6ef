#pragma once

#include "platform/base/Types.h"

#include <array>
#include <span>
#include <string_view>

namespace utility
{

class CString;

/// One insert of a formatted text, with its type: what stands in place of variable arguments.
///
/// Refers to the text it was made from, so it lives no longer than the call it is passed to.
class CFormatArgument
{
public:
    enum class EKind
    {
        Signed,
        Unsigned,
        Real,
        Unit,
        Text,
        Pointer
    };

    constexpr CFormatArgument(bool value) : m_Kind(EKind::Signed), m_Signed(value ? 1 : 0) {}
    constexpr CFormatArgument(int value) : m_Kind(EKind::Signed), m_Signed(value) {}
    constexpr CFormatArgument(long value) : m_Kind(EKind::Signed), m_Signed(value), m_Width(8) {}
    constexpr CFormatArgument(long long value) : m_Kind(EKind::Signed), m_Signed(value), m_Width(8)
    {
    }
    constexpr CFormatArgument(unsigned value) : m_Kind(EKind::Unsigned), m_Unsigned(value) {}
    constexpr CFormatArgument(unsigned long value)
        : m_Kind(EKind::Unsigned),
          m_Unsigned(value),
          m_Width(8)
    {
    }
    constexpr CFormatArgument(unsigned long long value)
        : m_Kind(EKind::Unsigned),
          m_Unsigned(value),
          m_Width(8)
    {
    }
    constexpr CFormatArgument(double value) : m_Kind(EKind::Real), m_Real(value) {}
    constexpr CFormatArgument(char16_t value) : m_Kind(EKind::Unit), m_Unsigned(value) {}
    constexpr CFormatArgument(const char16_t* text)
        : m_Kind(EKind::Text),
          m_Text(text ? std::u16string_view(text) : std::u16string_view())
    {
    }
    constexpr CFormatArgument(std::u16string_view text) : m_Kind(EKind::Text), m_Text(text) {}
    CFormatArgument(const CString& text); // inline in String.h
    constexpr CFormatArgument(const void* pointer) : m_Kind(EKind::Pointer), m_Pointer(pointer) {}

    constexpr EKind GetKind() const { return m_Kind; }

    /// The value of a Signed insert.
    constexpr std::int64_t GetSigned() const { return m_Signed; }

    /// The value of an Unsigned or Unit insert.
    constexpr std::uint64_t GetUnsigned() const { return m_Unsigned; }

    constexpr double GetReal() const { return m_Real; }
    constexpr std::u16string_view GetText() const { return m_Text; }
    constexpr const void* GetPointer() const { return m_Pointer; }

    /// Bytes of an integer insert as it was passed: 4 or 8.
    constexpr int GetWidth() const { return m_Width; }

private:
    EKind m_Kind;
    union
    {
        std::int64_t m_Signed;
        std::uint64_t m_Unsigned;
        double m_Real;
        const void* m_Pointer;
        std::u16string_view m_Text;
    };
    int m_Width = 4;
};

/// A ready list of inserts: what an overload with an argument list takes.
using CFormatArguments = std::span<const CFormatArgument>;

} // namespace utility
