#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/Exception.h"

namespace utility
{

/// A broken or misused archive.
class UTILITY_CORE_API CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)

public:
    enum ECause
    {
        none = 0,
        genericException = 1,
        readOnly = 2,
        endOfFile = 3,
        writeOnly = 4, // read while the archive stores
        badIndex = 5,
        badClass = 6,
        badSchema = 7
    };

    explicit CArchiveException(int cause = none) : m_cause(cause) {}

    CString GetErrorText() const override;

    int m_cause;
};

/// Raises a new `CArchiveException`, by pointer.
[[noreturn]] UTILITY_CORE_API void AfxThrowArchiveException(int cause);

} // namespace utility
