#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/object/Exception.h"

namespace utility
{

/// A failed storage or date call, with its code.
class UTILITY_CORE_API COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    explicit COleException(HRESULT code) : m_sc(code) {}

    /// The code as eight hexadecimal digits: storages and dates have no words of their own.
    CString GetErrorText() const override;

    HRESULT m_sc;
};

/// Raises a new `COleException`, by pointer.
[[noreturn]] UTILITY_CORE_API void AfxThrowOleException(HRESULT code);

} // namespace utility
