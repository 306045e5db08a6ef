#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/OleDateTime.h"
#include "platform/db/DBVariant.h"

namespace utility
{

/// How the date of a field reads as text.
enum EDateOutput : int
{
    DATE_OUTPUT_LOCALE = 0,
    DATE_OUTPUT_DATABASE = 1 // 2024-12-31 23:59:58.123
};

/// One value of a query's column, or of a parameter, converted on demand to any other type.
///
/// A column keeps its type: writing text into a number column parses it. A parameter takes the type
/// of the last value assigned. Conversions never fail: what has no meaning reads as the empty value
/// of the type asked for, and a value that a column's type cannot take is ignored. Whole numbers
/// keep their low bits, real ones are cut towards zero and held within the target's range. A field
/// of SQL NULL reads empty; assigning does not lift that mark, the recordset does.
///
/// Laid down, and kept:
///
///     any text, even "0", into a BOOL    true; a null pointer false
///     UCHAR 200 as text                  "4294967240"
///     double as text, text from double   "%g", "%f"
///     text into a field without type     DBVT_ASTRING, which nothing reads
class UTILITY_CORE_API CDBField : public CDBVariant
{
public:
    CDBField() = default;
    /// As assignment.
    CDBField(const CDBField& other);

    const CString& GetName() const { return m_strName; }
    /// A letter, then letters, digits and underscores, all ASCII; outer blanks do not count.
    static bool ValidName(const CString& name);
    /// No type, and not known whether NULL.
    void Clear();

    // What the field is
    bool IsNull() const { return m_NullState == 1 || m_dwType == DBVT_NULL; }
    bool IsBool() const { return m_dwType == DBVT_BOOL; }
    bool IsChar() const { return m_dwType == DBVT_UCHAR; }
    bool IsShort() const { return m_dwType == DBVT_SHORT; }
    bool IsInt() const { return m_dwType == DBVT_LONG; }
    bool IsLong() const { return m_dwType == DBVT_LONG; }
    bool IsFloat() const { return m_dwType == DBVT_SINGLE; }
    bool IsDouble() const { return m_dwType == DBVT_DOUBLE; }
    bool IsDate() const { return m_dwType == DBVT_DATE; }
    bool IsString() const { return m_dwType == DBVT_STRING; }
    bool IsBinary() const { return m_dwType == DBVT_BINARY; }
    /// Not so for UCHAR and BOOL.
    bool IsNumber() const { return m_dwType >= DBVT_SHORT && m_dwType <= DBVT_DOUBLE; }

    // Reading
    bool AsBool() const;
    unsigned char AsChar() const;
    short AsShort() const;
    int AsInt() const { return AsLong(); }
    std::int32_t AsLong() const;
    /// A date as a FILETIME count.
    std::int64_t AsInt64() const;
    float AsFloat() const;
    double AsDouble() const;
    /// A number is a count of seconds since 1970, shown in the local zone.
    COleDateTime AsDate() const;
    TIMESTAMP_STRUCT AsTimeStamp() const;
    /// Bytes stand at the start of as many units, undecoded.
    CString AsString() const;
    /// The field's own block, or null if it holds no binary.
    CLongBinary* AsBinary() const { return IsBinary() ? m_pbinary : nullptr; }

    operator bool() const { return AsBool(); }
    operator unsigned char() const { return AsChar(); }
    operator short() const { return AsShort(); }
    operator int() const { return AsInt(); }
    operator std::int64_t() const { return AsInt64(); }
    operator float() const { return AsFloat(); }
    operator double() const { return AsDouble(); }
    operator COleDateTime() const { return AsDate(); }
    operator TIMESTAMP_STRUCT() const { return AsTimeStamp(); }
    operator CString() const { return AsString(); }
    operator CLongBinary*() const { return AsBinary(); }

    // Assigning
    CDBField& operator=(bool value);
    CDBField& operator=(unsigned char value);
    CDBField& operator=(char value) { return *this = static_cast<unsigned char>(value); }
    CDBField& operator=(short value);
    CDBField& operator=(int value);
    CDBField& operator=(std::int64_t value);
    CDBField& operator=(float value);
    CDBField& operator=(double value);
    CDBField& operator=(const char16_t* text);
    CDBField& operator=(const CString& text);
    CDBField& operator=(const COleDateTime& date);
    CDBField& operator=(const TIMESTAMP_STRUCT& time);
    /// Null mark, name, parameter flag and value, but not the date form.
    CDBField& operator=(const CDBField& other);
    /// Takes the type too. A binary is left empty: blocks are not shared.
    CDBField& operator=(const CDBVariant& other);

    /// Gives the field a block of the GlobalAlloc family; nothing unless it holds a binary, and the
    /// block stays the caller's.
    bool SetBinary(HGLOBAL data, DWORD size);

private:
    friend class CODBCRecordset;

    bool IsEmptyValue() const { return m_NullState == 1; }
    void TakeParamType(DWORD type);
    template <typename TNumber>
    void AssignNumber(TNumber value, DWORD type, const char16_t* format);
    void AssignLetter(unsigned char letter, int number, DWORD type);
    void AssignText(const CString& text, bool present);
    std::int64_t ReadWhole() const;
    double ReadReal() const;
    CString DateText() const;
    CString BinaryText() const;

    bool m_bParam = false;
    std::int32_t m_NullState = -1; // 1 NULL, 0 not, -1 not known yet
    CString m_strName;
    std::int32_t m_DateFormat = DATE_OUTPUT_LOCALE;
};

} // namespace utility
