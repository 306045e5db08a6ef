#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// What a tool knows of one column of a user's table: what it means, and what is done with it.
class UTILITY_CORE_API CDBFInfo
{
public:
    /// Mapped to its own name, loaded and shown.
    explicit CDBFInfo(const CString& name, DWORD type = 0)
        : m_MapTo(name),
          m_Name(name),
          m_Type(type)
    {
    }

    const CString& GetName() const { return m_Name; }
    void SetName(const CString& name) { m_Name = name; }
    /// The tool's field.
    const CString& GetMapTo() const { return m_MapTo; }
    void SetMapTo(const CString& mapTo) { m_MapTo = mapTo; }
    /// A key property of the part.
    bool GetCritical() const { return m_Critical; }
    void SetCritical(bool critical) { m_Critical = critical; }
    /// Its value is a link.
    bool GetHyperlink() const { return m_Hyperlink; }
    void SetHyperlink(bool hyperlink) { m_Hyperlink = hyperlink; }
    /// The column is read.
    bool GetLoad() const { return m_Load; }
    void SetLoad(bool load) { m_Load = load; }
    bool GetShow() const { return m_Show; }
    void SetShow(bool show) { m_Show = show; }
    /// A DBVT_ value.
    DWORD GetType() const { return m_Type; }
    void SetType(DWORD type) { m_Type = type; }
    /// An SQL_ value.
    DWORD GetSqlType() const { return m_SqlType; }
    void SetSqlType(DWORD sqlType) { m_SqlType = sqlType; }
    /// An EParseType.
    DWORD GetParseType() const { return m_ParseType; }
    void SetParseType(DWORD parseType) { m_ParseType = parseType; }

    bool IsDate() const;
    bool IsString() const;
    bool CanFormatAsDouble() const { return !IsDate() && !IsString(); }
    /// An exact number, which arrives as text.
    bool IsNumericAsString() const;
    bool RequiresNumericValue() const;

    /// Names in any case of letters, all else exactly.
    bool operator==(const CDBFInfo& other) const;

private:
    bool m_Critical = false;
    bool m_Hyperlink = false;
    bool m_Load = true;
    CString m_MapTo;
    CString m_Name;
    bool m_Show = true;
    DWORD m_Type;
    DWORD m_SqlType = 0;
    DWORD m_ParseType = 0;
};

} // namespace utility
