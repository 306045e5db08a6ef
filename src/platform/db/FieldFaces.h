#pragma once

#include "platform/base/Encoding.h"
#include "platform/base/GlobalMemory.h"
#include "platform/base/Utf8.h"
#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/DbValue.h"
#include "platform/db/LongBinary.h"
#include "platform/db/ValueText.h"

#include <bit>
#include <cstring>
#include <string>
#include <string_view>

namespace utility
{

// What a NULL field holds while its row is edited: values that nobody assigns.
constexpr LONG ARMED_INTEGER = -1789569707;
constexpr BYTE ARMED_BYTE = 0xFF;
constexpr std::uint32_t ARMED_SINGLE = 0x7FC00BAD;         // a NaN
constexpr std::uint64_t ARMED_DOUBLE = 0x7FF800000BAD0000; // a NaN
constexpr LPCWSTR ARMED_TEXT = u"\uFFFF";
constexpr std::string_view ARMED_UTF8 = "\xEF\xBF\xBF";
constexpr std::int16_t ARMED_YEAR = -32768;

inline CDbValue GivenValue(EValueKind kind)
{
    CDbValue value;
    value.Kind = kind;
    value.IsNull = false;
    return value;
}

inline CDbValue GivenInteger(EValueKind kind, std::int64_t number)
{
    CDbValue value = GivenValue(kind);
    value.Integer = number;
    return value;
}

inline CDbValue GivenReal(EValueKind kind, double number)
{
    CDbValue value = GivenValue(kind);
    value.Real = number;
    return value;
}

/// Whether a column's value could be taken into a field.
enum class ETaken
{
    Yes,
    WrongType,
    OutOfRange
};

// A face is what the fields of one type show to an exchange: Take a value that is not NULL, be
// Empty for a NULL, be Armed for a NULL under edit, tell a change, Give the value to send (texts go
// into `bytes`).

/// A whole number; a BOOL is told from a LONG by its kind.
struct CIntegerFace
{
    using TField = LONG;
    TField& Field;
    EValueKind Kind = EValueKind::Integer;

    ETaken Take(const CDbValue& value) const
    {
        std::int64_t number = 0;
        if (!ReadInteger(value, number))
            return ETaken::WrongType;
        if (Kind == EValueKind::Bit)
            number = number != 0 ? 1 : 0;
        if (number < INT32_MIN || number > INT32_MAX)
            return ETaken::OutOfRange;
        Field = static_cast<LONG>(number);
        return ETaken::Yes;
    }
    void Empty() const { Field = 0; }
    void Arm() const { Field = ARMED_INTEGER; }
    bool IsChanged(const TField& before) const { return Field != before; }
    CDbValue Give(std::string&) const { return GivenInteger(Kind, Field); }
    CIntegerFace On(TField& other) const { return {other, Kind}; }
};

struct CByteFace
{
    using TField = BYTE;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        std::int64_t number = 0;
        if (!ReadInteger(value, number))
            return ETaken::WrongType;
        Field = static_cast<BYTE>(number); // -5 reads as 251
        return ETaken::Yes;
    }
    void Empty() const { Field = 0; }
    void Arm() const { Field = ARMED_BYTE; }
    bool IsChanged(const TField& before) const { return Field != before; }
    CDbValue Give(std::string&) const { return GivenInteger(EValueKind::Integer, Field); }
    CByteFace On(TField& other) const { return {other}; }
};

struct CSingleFace
{
    using TField = float;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        double number = 0;
        if (!ReadReal(value, number))
            return ETaken::WrongType;
        Field = static_cast<float>(number);
        return ETaken::Yes;
    }
    void Empty() const { Field = 0; }
    void Arm() const { Field = std::bit_cast<float>(ARMED_SINGLE); }
    bool IsChanged(const TField& before) const
    {
        return std::bit_cast<std::uint32_t>(Field) != std::bit_cast<std::uint32_t>(before);
    }
    CDbValue Give(std::string&) const { return GivenReal(EValueKind::Single, Field); }
    CSingleFace On(TField& other) const { return {other}; }
};

struct CDoubleFace
{
    using TField = double;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        return ReadReal(value, Field) ? ETaken::Yes : ETaken::WrongType;
    }
    void Empty() const { Field = 0; }
    void Arm() const { Field = std::bit_cast<double>(ARMED_DOUBLE); }
    bool IsChanged(const TField& before) const
    {
        return std::bit_cast<std::uint64_t>(Field) != std::bit_cast<std::uint64_t>(before);
    }
    CDbValue Give(std::string&) const { return GivenReal(EValueKind::Real, Field); }
    CDoubleFace On(TField& other) const { return {other}; }
};

struct CDateFace
{
    using TField = TIMESTAMP_STRUCT;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        if (value.Kind != EValueKind::Date)
            return ETaken::WrongType;
        Field = value.Date;
        return ETaken::Yes;
    }
    void Empty() const { Field = {}; }
    void Arm() const
    {
        Empty();
        Field.year = ARMED_YEAR;
    }
    bool IsChanged(const TField& before) const { return !(Field == before); }
    CDbValue Give(std::string&) const
    {
        if (!IsDate())
            ThrowRefusal(AFX_SQL_ERROR_BAD_DATE);
        CDbValue value = GivenValue(EValueKind::Date);
        value.Date = Field;
        return value;
    }
    CDateFace On(TField& other) const { return {other}; }
    bool IsDate() const
    {
        return Field.year >= 0 && Field.month >= 1 && Field.month <= 12 && Field.day >= 1 &&
               Field.day <= 31 && Field.hour < 24 && Field.minute < 60 && Field.second < 62;
    }
};

/// A NUL ends a text on its way to most sources, and half a pair is none in UTF-8: neither is sent.
inline void RequireText(std::u16string_view text)
{
    for (std::size_t place = 0; place < text.size(); ++place)
    {
        const char16_t unit = text[place];
        const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        const bool isPair = isHigh && place + 1 < text.size() && text[place + 1] >= 0xDC00 &&
                            text[place + 1] < 0xE000;
        if (unit == 0 || isLow || (isHigh && !isPair))
            ThrowRefusal(AFX_SQL_ERROR_BAD_TEXT);
        place += isPair ? 1 : 0;
    }
}

struct CTextFace
{
    using TField = CString;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        if (value.Kind != EValueKind::Text)
        {
            Field = FormatValue(value);
            return ETaken::Yes;
        }
        char16_t* const units = Field.GetBuffer(static_cast<int>(value.Bytes.size()));
        Field.ReleaseBuffer(static_cast<int>(utf8::Decode(value.Bytes, units)));
        return ETaken::Yes;
    }
    void Empty() const { Field.Empty(); }
    void Arm() const { Field = ARMED_TEXT; }
    bool IsChanged(const TField& before) const { return Field != before; }
    CDbValue Give(std::string& bytes) const
    {
        RequireText(Field.View());
        bytes = ToUtf8(Field.View());
        return GivenValue(EValueKind::Text);
    }
    bool IsLongerThan(int limit) const { return Field.GetLength() > limit; }
    CTextFace On(TField& other) const { return {other}; }
};

struct CUtf8Face
{
    using TField = std::string;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        if (value.Kind == EValueKind::Text)
            Field = value.Bytes;
        else
            Field = ToUtf8(FormatValue(value).View());
        return ETaken::Yes;
    }
    void Empty() const { Field.clear(); }
    void Arm() const { Field = ARMED_UTF8; }
    bool IsChanged(const TField& before) const { return Field != before; }
    CDbValue Give(std::string& bytes) const
    {
        bytes = Field;
        return GivenValue(EValueKind::Text);
    }
    bool IsLongerThan(int limit) const
    {
        return utf8::CountUnits(Field) > static_cast<std::size_t>(limit);
    }
    CUtf8Face On(TField& other) const { return {other}; }
};

struct CBinaryFace
{
    using TField = CLongBinary;
    TField& Field;

    ETaken Take(const CDbValue& value) const
    {
        if (value.Kind != EValueKind::Binary && value.Kind != EValueKind::Text)
            return ETaken::WrongType;
        Empty();
        Field.m_hData = GlobalAlloc(GMEM_MOVEABLE, value.Bytes.size());
        if (void* const place = GlobalLock(Field.m_hData))
        {
            if (!value.Bytes.empty())
                std::memcpy(place, value.Bytes.data(), value.Bytes.size());
            GlobalUnlock(Field.m_hData);
            Field.m_dwDataLength = static_cast<DWORD>(value.Bytes.size());
        }
        return ETaken::Yes;
    }
    void Empty() const
    {
        Field.m_hData = GlobalFree(Field.m_hData);
        Field.m_dwDataLength = 0;
    }
    CDbValue Give(std::string& bytes) const
    {
        const std::size_t size =
            std::min<std::size_t>(Field.m_dwDataLength, GlobalSize(Field.m_hData));
        const void* const place = GlobalLock(Field.m_hData);
        bytes.assign(static_cast<const char*>(place), place ? size : 0);
        GlobalUnlock(Field.m_hData);
        return GivenValue(EValueKind::Binary);
    }
};

} // namespace utility
