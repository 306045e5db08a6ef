#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Exception.h"

namespace utility
{

class CDatabase;

// Codes of our own in CDBException::m_nRetCode; a driver's are below 1000
constexpr RETCODE AFX_SQL_ERROR_CONNECTION_CLOSED = 1000; // 08003
constexpr RETCODE AFX_SQL_ERROR_CONNECTION_IN_USE = 1001; // 08002
constexpr RETCODE AFX_SQL_ERROR_NO_SOURCE_NAMED = 1002;   // IM002
constexpr RETCODE AFX_SQL_ERROR_NOT_OFFERED = 1003;       // HYC00
constexpr RETCODE AFX_SQL_ERROR_NO_ROW = 1004;            // 24000: no current row for this step
constexpr RETCODE AFX_SQL_ERROR_PAST_END = 1005;  // 02000: Next at the end, Prior at the start
constexpr RETCODE AFX_SQL_ERROR_READ_ONLY = 1006; // 25006
constexpr RETCODE AFX_SQL_ERROR_ROW_CHANGED =
    1007; // 44000: an update or delete did not hit exactly one row
constexpr RETCODE AFX_SQL_ERROR_OUT_OF_RANGE = 1008;  // 22003
constexpr RETCODE AFX_SQL_ERROR_TEXT_TOO_LONG = 1009; // 22001
constexpr RETCODE AFX_SQL_ERROR_TEXT_WAS_CUT = 1010;  // 22026: a row with a cut text is not edited
constexpr RETCODE AFX_SQL_ERROR_NOTHING_TO_UPDATE = 1011; // 24000: Update without AddNew or Edit
constexpr RETCODE AFX_SQL_ERROR_WRONG_TYPE = 1012;        // 07006: column and exchange do not fit
constexpr RETCODE AFX_SQL_ERROR_CANCELLED = 1013;         // HY008
constexpr RETCODE AFX_SQL_ERROR_BAD_DATE = 1015;          // 22007
constexpr RETCODE AFX_SQL_ERROR_ALREADY_OPEN = 1014;      // 24000
constexpr RETCODE AFX_SQL_ERROR_BAD_TEXT = 1016;          // 22021

/// What kind of refusal an exception tells of, whatever the driver calls it.
enum class EDBFailure
{
    Other,
    NoDriver, // the driver's library or the named source is not there
    NoServer, // nobody answers, or the answer stopped
    NoAccess, // user or password not taken, or a right missing
    NoTable,  // a table or view is not there
    NoColumn,
    Duplicate, // a key stands already, or a rule of the table is broken
    Value,     // a value that does not fit
    Busy,      // locked by another user, or timed out
    Full,      // no room for what was to be stored
    Cancelled
};

/// A driver's refusal, or one of our own; thrown and caught by pointer.
class UTILITY_CORE_API CDBException : public CException
{
    DECLARE_DYNAMIC(CDBException)

public:
    explicit CDBException(RETCODE code) : m_nRetCode(code) {}

    /// The kind in words, where it is known, and the driver's text behind it, lines joined by
    /// blanks: "Table not found: no such table: Stock (1)".
    CString GetErrorText() const override;

    /// Never 0: the driver's return code, or one of ours from 1000 up.
    RETCODE m_nRetCode;

    /// The messages without their bracketed origin, one a line, each with its line feed.
    CString m_strError;

    /// "State:42S02,Native:1051,Origin:[ma-3.1.15]\n" for each message.
    CString m_strStateNativeOrigin;

    /// The kind, read from the states and, where a driver has only a general one, from its native
    /// code or words.
    EDBFailure m_Failure = EDBFailure::Other;
};

/// Throws a CDBException for a refused call.
///
/// A code below 1000 takes the messages of `statement` or, when it is null, of the connection; one
/// of ours takes its own words. Either pointer may be null.
[[noreturn]] UTILITY_CORE_API void AfxThrowDBException(RETCODE code, CDatabase* database,
                                                       HSTMT statement);

} // namespace utility
