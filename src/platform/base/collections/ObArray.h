#pragma once

#include "platform/base/collections/Array.h"

namespace utility
{

class CObject;

/// Array of object pointers; the objects are not owned.
class CObArray : public CArray<CObject*, CObject*>
{
};

} // namespace utility
