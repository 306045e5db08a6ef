#pragma once

#include "platform/base/collections/Array.h"

namespace utility
{

/// Array of plain pointers; what they point at is not owned.
class CPtrArray : public CArray<void*, void*>
{
};

} // namespace utility
