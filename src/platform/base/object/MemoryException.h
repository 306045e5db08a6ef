#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/Exception.h"

namespace utility
{

/// A size that is refused, or memory that is not to be had.
class UTILITY_CORE_API CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    CString GetErrorText() const override;
};

/// Raises a new `CMemoryException`, by pointer.
[[noreturn]] UTILITY_CORE_API void AfxThrowMemoryException();

} // namespace utility
