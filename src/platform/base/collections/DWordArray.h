#pragma once

#include "platform/base/Types.h"
#include "platform/base/collections/Array.h"

namespace utility
{

/// Array of 32-bit words.
class CDWordArray : public CArray<DWORD, DWORD>
{
};

} // namespace utility
