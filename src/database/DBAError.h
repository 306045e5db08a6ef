#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

class CDBException;

/// The last refusal that a connection or a recordset met; later successes leave it.
class UTILITY_CORE_API CDBAError
{
public:
    /// Takes over what the exception tells, and deletes it.
    void Record(CDBException* exception);
    bool IsEmpty() const { return m_RetCode == 0; }
    /// "Database error:" with text and states, or "No error".
    CString GetDetails() const;

private:
    RETCODE m_RetCode = 0; // 0: nothing was recorded
    CString m_Error;
    CString m_StateNativeOrigin;
};

} // namespace utility
