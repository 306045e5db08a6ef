#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/time/TimestampStruct.h"
#include "platform/db/OdbcTypes.h"

#include <string>

namespace utility
{

class CLongBinary;
class CRecordset;

/// One pass over the fields or parameters of a recordset, handed to its `DoFieldExchange`.
///
/// Fields have no table of their own: the recordset calls one RFX function for each, always in the
/// same order, and each function does what the operation asks. The nth call with outputColumn
/// belongs to the nth result column, the nth with param to the nth parameter mark, so a field
/// without a type is passed over by `RFX_Null`.
class UTILITY_CORE_API CFieldExchange
{
public:
    enum RFX_Operation
    {
        BindParam, // parameters go to the statement; called only with at least one parameter
        BindFieldToColumn, // the fields name their kind and limit; their values stay as they are
        LoadField,         // the current row goes into the fields
        ClearField,        // all fields become empty and NULL: AddNew
        ArmNullField,      // NULL fields become such that an assignment is seen: Edit
        MarkDirty,         // fields that differ from the current row are marked
        SendDirty          // marked fields go to the statement of Update
    };

    enum FieldType
    {
        noFieldType,
        outputColumn,
        param
    };

    CFieldExchange(RFX_Operation operation, CRecordset* recordset)
        : m_nOperation(operation),
          m_prs(recordset)
    {
    }

    /// What the RFX calls that follow exchange.
    void SetFieldType(FieldType type) { m_nFieldType = type; }

    /// True, and the next field or parameter is counted, if an RFX call has to work in this
    /// operation; `index` from 0.
    bool IsFieldType(int& index);

    const RFX_Operation m_nOperation;
    CRecordset* const m_prs;

private:
    FieldType m_nFieldType = noFieldType;
    int m_nFields = 0; // counted so far
};

/// Each exchanges one field; what the operation does with it stands at CFieldExchange.
///
/// `name` is for exceptions; only the operations BindParam and BindFieldToColumn read it, others
/// may pass an empty one. A NULL reads as zero or an empty text, with its mark in the field status.
/// While an edit or addition is under way a NULL field holds a value that nobody assigns (an odd
/// number, a NaN, U+FFFF), so that an assigned 0 or "" counts as a change. A column of another kind
/// is converted where numbers and texts allow; otherwise the exchange raises CDBException 07006,
/// and an integer that does not fit raises 22003 with the column's name.
UTILITY_CORE_API void RFX_Bool(CFieldExchange* exchange, LPCWSTR name, BOOL& value);
UTILITY_CORE_API void RFX_Byte(CFieldExchange* exchange, LPCWSTR name, BYTE& value);
UTILITY_CORE_API void RFX_Long(CFieldExchange* exchange, LPCWSTR name, LONG& value);
UTILITY_CORE_API void RFX_Single(CFieldExchange* exchange, LPCWSTR name, float& value);
UTILITY_CORE_API void RFX_Double(CFieldExchange* exchange, LPCWSTR name, double& value);
UTILITY_CORE_API void RFX_Date(CFieldExchange* exchange, LPCWSTR name, TIMESTAMP_STRUCT& value);

/// A column's text is cut at `maxLength` units, never inside a surrogate pair, and its row then
/// refuses an edit
/// (`CRecordset::IsFieldCut`). A longer parameter raises 22001 before anything is sent.
UTILITY_CORE_API void RFX_Text(CFieldExchange* exchange, LPCWSTR name, CString& value,
                               int maxLength = 255, int columnType = SQL_VARCHAR, short scale = 0);

/// The same with UTF-8; the limits still count 16-bit units.
UTILITY_CORE_API void RFX_Text(CFieldExchange* exchange, LPCWSTR name, std::string& value,
                               int maxLength = 255, int columnType = SQL_VARCHAR, short scale = 0);

/// A change is told by `CRecordset::SetFieldDirty`, not by comparing.
UTILITY_CORE_API void RFX_LongBinary(CFieldExchange* exchange, LPCWSTR name, CLongBinary& value);

/// Passes over a field without a type: its column is not exchanged, as a parameter it is NULL.
UTILITY_CORE_API void RFX_Null(CFieldExchange* exchange, LPCWSTR name);

} // namespace utility
