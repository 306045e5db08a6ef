#pragma once

#include "platform/base/Export.h"
#include "platform/base/collections/BoundsCheck.h" // AfxThrowInvalidArgException
#include "platform/base/object/Exception.h"

namespace utility
{

/// An index, position or argument out of bounds.
class UTILITY_CORE_API CInvalidArgException : public CException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    CString GetErrorText() const override;
};

} // namespace utility
