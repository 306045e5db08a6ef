#include "platform/db/DBException.h"

#include "platform/base/CaseFold.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Database.h"

#include <algorithm>
#include <string>

namespace utility
{

IMPLEMENT_DYNAMIC(CDBException, CException)

namespace
{

struct COwnRefusal
{
    RETCODE Code;
    const char16_t* State;
    EDBFailure Failure;
    const char16_t* Text; // %1 is the insert
};

constexpr COwnRefusal OWN_REFUSALS[] = {
    {AFX_SQL_ERROR_CONNECTION_CLOSED, u"08003", EDBFailure::Other, u"The connection is not open"},
    {AFX_SQL_ERROR_CONNECTION_IN_USE, u"08002", EDBFailure::Other,
     u"The connection is open already"},
    {AFX_SQL_ERROR_NO_SOURCE_NAMED, u"IM002", EDBFailure::NoDriver,
     u"Neither a data source nor a connect string is given"},
    {AFX_SQL_ERROR_NOT_OFFERED, u"HYC00", EDBFailure::Other, u"Not offered: %1"},
    {AFX_SQL_ERROR_NO_ROW, u"24000", EDBFailure::Other, u"There is no current row"},
    {AFX_SQL_ERROR_PAST_END, u"02000", EDBFailure::Other, u"There is no row in that direction"},
    {AFX_SQL_ERROR_READ_ONLY, u"25006", EDBFailure::Other, u"The rows cannot be changed: %1"},
    {AFX_SQL_ERROR_ROW_CHANGED, u"44000", EDBFailure::Other,
     u"The row was not changed: its old values are found in %1 rows"},
    {AFX_SQL_ERROR_OUT_OF_RANGE, u"22003", EDBFailure::Value,
     u"The number in column %1 does not fit 32 bits"},
    {AFX_SQL_ERROR_TEXT_TOO_LONG, u"22001", EDBFailure::Value,
     u"The text for %1 is longer than its limit"},
    {AFX_SQL_ERROR_TEXT_WAS_CUT, u"22026", EDBFailure::Value,
     u"The row cannot be changed: a text of it is longer than its column's limit, or a date of it "
     u"cannot be read"},
    {AFX_SQL_ERROR_NOTHING_TO_UPDATE, u"24000", EDBFailure::Other,
     u"No row is being added or edited"},
    {AFX_SQL_ERROR_WRONG_TYPE, u"07006", EDBFailure::Value,
     u"The type of column %1 cannot be read this way"},
    {AFX_SQL_ERROR_CANCELLED, u"HY008", EDBFailure::Cancelled, u"Cancelled"},
    {AFX_SQL_ERROR_BAD_DATE, u"22007", EDBFailure::Value, u"A date to be sent is none"},
    {AFX_SQL_ERROR_BAD_TEXT, u"22021", EDBFailure::Value,
     u"A text to be sent has a NUL or half a surrogate pair in it"},
    {AFX_SQL_ERROR_ALREADY_OPEN, u"24000", EDBFailure::Other, u"The recordset is open already"},
};

/// What tells a kind: the head of a state, or a general state with a native code or words that only
/// that driver has.
struct CFailureSign
{
    const char16_t* State;
    std::int32_t Native; // 0 for any
    const char16_t* Words;
    EDBFailure Failure;
};

constexpr CFailureSign FAILURE_SIGNS[] = {
    {u"01000", 0, u"Can't open lib", EDBFailure::NoDriver},
    {u"IM", 0, u"", EDBFailure::NoDriver},
    {u"28", 0, u"", EDBFailure::NoAccess},
    {u"42501", 0, u"", EDBFailure::NoAccess},
    {u"08001", 0, u"authentication failed", EDBFailure::NoAccess},
    {u"08001", 0, u"no password supplied", EDBFailure::NoAccess},
    {u"08001", 0, u"role \"", EDBFailure::NoAccess},
    {u"08", 0, u"", EDBFailure::NoServer},
    {u"57P", 0, u"", EDBFailure::NoServer},
    {u"42000", 1049, u"", EDBFailure::NoServer},
    {u"HY000", 2002, u"", EDBFailure::NoServer},
    {u"HY000", 2003, u"", EDBFailure::NoServer},
    {u"HY000", 2005, u"", EDBFailure::NoServer},
    {u"HY000", 2006, u"", EDBFailure::NoServer},
    {u"HY000", 2013, u"", EDBFailure::NoServer},
    {u"HY000", 0, u"connect failed", EDBFailure::NoServer},
    {u"42S02", 0, u"", EDBFailure::NoTable},
    {u"42P01", 0, u"", EDBFailure::NoTable},
    {u"HY000", 0, u"no such table", EDBFailure::NoTable},
    {u"42S22", 0, u"", EDBFailure::NoColumn},
    {u"42703", 0, u"", EDBFailure::NoColumn},
    {u"HY000", 0, u"no such column", EDBFailure::NoColumn},
    {u"HY000", 0, u"has no column named", EDBFailure::NoColumn},
    {u"23", 0, u"", EDBFailure::Duplicate},
    {u"HY000", 0, u"constraint failed", EDBFailure::Duplicate},
    {u"22", 0, u"", EDBFailure::Value},
    {u"HY008", 0, u"", EDBFailure::Cancelled},
    {u"HY018", 1317, u"", EDBFailure::Cancelled},
    {u"HY000", 9, u"interrupted", EDBFailure::Cancelled},
    {u"57014", 0, u"statement timeout", EDBFailure::Busy},
    {u"57014", 0, u"", EDBFailure::Cancelled},
    {u"70100", 1969, u"", EDBFailure::Busy},
    {u"70100", 0, u"", EDBFailure::Cancelled},
    {u"HYT", 0, u"", EDBFailure::Busy},
    {u"40", 0, u"", EDBFailure::Busy},
    {u"55P03", 0, u"", EDBFailure::Busy},
    {u"HY000", 1205, u"", EDBFailure::Busy},
    {u"HY000", 0, u"database is locked", EDBFailure::Busy},
    {u"53100", 0, u"", EDBFailure::Full},
    {u"HY000", 1021, u"", EDBFailure::Full},
    {u"HY000", 1114, u"", EDBFailure::Full},
    {u"HY000", 0, u"disk is full", EDBFailure::Full},
};

const char16_t* FailureWords(EDBFailure failure)
{
    switch (failure)
    {
    case EDBFailure::Other:
        return u"";
    case EDBFailure::NoDriver:
        return u"Driver or data source not found: ";
    case EDBFailure::NoServer:
        return u"Database not reached: ";
    case EDBFailure::NoAccess:
        return u"Access refused: ";
    case EDBFailure::NoTable:
        return u"Table not found: ";
    case EDBFailure::NoColumn:
        return u"Column not found: ";
    case EDBFailure::Duplicate:
        return u"Rule of the table broken: ";
    case EDBFailure::Value:
        return u"Value refused: ";
    case EDBFailure::Busy:
        return u"Database busy: ";
    case EDBFailure::Full:
        return u"No room left: ";
    case EDBFailure::Cancelled:
        return u"Stopped: ";
    }
    return u"";
}

EDBFailure Classify(const CDiagnostic& diagnostic)
{
    for (const CFailureSign& sign : FAILURE_SIGNS)
        if (diagnostic.State.View().starts_with(sign.State) &&
            (sign.Native == 0 || sign.Native == diagnostic.Native) &&
            diagnostic.Message.Find(sign.Words) >= 0)
            return sign.Failure;
    return EDBFailure::Other;
}

/// The bracketed groups in front of a message: "[ma-3.1.15][10.11]Unknown" has 18 units of them,
/// the first 11 name it.
struct COrigin
{
    std::size_t First = 0;
    std::size_t All = 0;
};

COrigin FindOrigin(std::u16string_view message)
{
    COrigin origin;
    while (origin.All < message.size() && message[origin.All] == u'[')
    {
        const std::size_t close = message.find(u']', origin.All);
        if (close == std::u16string_view::npos)
            break;
        origin.All = close + 1;
        if (origin.First == 0)
            origin.First = origin.All;
    }
    return origin;
}

void AddDiagnostic(CDBException& exception, const CDiagnostic& diagnostic)
{
    const std::u16string_view message = diagnostic.Message.View();
    const COrigin origin = FindOrigin(message);
    CString text(message.substr(origin.All));
    text.Trim();
    exception.m_strError += text;
    exception.m_strError += u'\n';
    exception.m_strStateNativeOrigin.AppendFormat(u"State:%s,Native:%d,Origin:%s\n",
                                                  diagnostic.State, diagnostic.Native,
                                                  CString(message.substr(0, origin.First)));
    if (exception.m_Failure == EDBFailure::Other)
        exception.m_Failure = Classify(diagnostic);
}

/// Drivers break lines and indent them: one blank for each such place.
CString OnOneLine(std::u16string_view text)
{
    constexpr std::u16string_view BLANKS = u" \t\r\n";
    CString line;
    for (std::size_t place = text.find_first_not_of(BLANKS); place < text.size();)
    {
        const std::size_t end = std::min(text.find_first_of(BLANKS, place), text.size());
        if (!line.IsEmpty())
            line += u' ';
        line += CString(text.substr(place, end - place));
        place = text.find_first_not_of(BLANKS, end);
    }
    return line;
}

/// Where a call was stopped too late to fail, the driver manager takes the statement for closed and
/// refuses the next one out of sequence, and a driver may say that all went well.
bool IsToldByDriver(const std::vector<CDiagnostic>& diagnostics)
{
    return !diagnostics.empty() && diagnostics.front().State != u"HY010" &&
           diagnostics.front().State != u"00000";
}

const COwnRefusal* FindOwnRefusal(RETCODE code)
{
    for (const COwnRefusal& refusal : OWN_REFUSALS)
        if (refusal.Code == code)
            return &refusal;
    return nullptr;
}

} // namespace

CString CDBException::GetErrorText() const
{
    return FailureWords(m_Failure) + OnOneLine(m_strError.View());
}

void ThrowRefusal(RETCODE code, std::u16string_view insert)
{
    auto exception = std::make_unique<CDBException>(code);
    if (const COwnRefusal* const refusal = FindOwnRefusal(code))
    {
        exception->m_Failure = refusal->Failure;
        exception->m_strError = refusal->Text;
        exception->m_strError.Replace(u"%1", CString(insert));
        exception->m_strError += u'\n';
        exception->m_strStateNativeOrigin.Format(u"State:%s,Native:0,Origin:\n", refusal->State);
    }
    throw exception.release();
}

void ThrowDriverRefusal(RETCODE code, const std::vector<CDiagnostic>& diagnostics,
                        EDBFailure unlessTold)
{
    // A call may be refused without a code of its own: a null handle, a row that is not there.
    auto exception = std::make_unique<CDBException>(code == SQL_SUCCESS ? SQL_ERROR : code);
    for (const CDiagnostic& diagnostic : diagnostics)
        AddDiagnostic(*exception, diagnostic);
    if (diagnostics.empty())
        exception->m_strError.Format(u"The driver refused with code %d and no words\n",
                                     static_cast<int>(code));
    if (exception->m_Failure == EDBFailure::Other)
        exception->m_Failure = unlessTold;
    throw exception.release();
}

void AfxThrowDBException(RETCODE code, CDatabase* database, HSTMT statement)
{
    if (FindOwnRefusal(code))
        ThrowRefusal(code);
    std::vector<CDiagnostic> diagnostics;
    if (statement)
    {
        diagnostics = statement->ReadDiagnostics();
        if (statement->WasStopped() && !IsToldByDriver(diagnostics))
            ThrowRefusal(AFX_SQL_ERROR_CANCELLED);
    }
    else if (database && database->m_hdbc)
        diagnostics = database->m_hdbc->ReadDiagnostics();
    const bool isLost = database && database->m_hdbc && database->m_hdbc->IsLost();
    ThrowDriverRefusal(code, diagnostics, isLost ? EDBFailure::NoServer : EDBFailure::Other);
}

} // namespace utility
