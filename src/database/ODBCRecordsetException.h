#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Exception.h"

namespace utility
{

/// A refused open or a wrong field, raised only by recordsets that were told to throw.
class UTILITY_CORE_API CODBCRecordsetException : public CException
{
    DECLARE_DYNAMIC(CODBCRecordsetException)

public:
    CODBCRecordsetException(UINT id, const CString& argument, const CString& detail);

    UINT GetId() const { return m_Id; }
    const CString& GetArgument() const { return m_Argument; }
    const CString& GetDetail() const { return m_Detail; }
    /// The id's text, filled with the argument.
    CString GetErrorText() const override;

private:
    UINT m_Id;
    CString m_Argument;
    CString m_Detail; // nothing uses it yet
};

[[noreturn]] UTILITY_CORE_API void ThrowODBCRecordsetException(UINT id, const CString& argument,
                                                               const CString& detail = CString());

} // namespace utility
