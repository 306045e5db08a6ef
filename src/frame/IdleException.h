#pragma once

#include "platform/base/object/Exception.h"

namespace utility
{

/// Thrown, as a pointer to a new object, to abandon idle work; `CIdleHandler::OnIdle` catches it.
class UTILITY_CORE_API CIdleException : public CException
{
    DECLARE_DYNAMIC(CIdleException)
};

} // namespace utility
