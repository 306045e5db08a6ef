#pragma once

#include "platform/base/Types.h"
#include "platform/base/collections/Array.h"

namespace utility
{

/// Array of bytes.
class CByteArray : public CArray<BYTE, BYTE>
{
};

} // namespace utility
