#pragma once

#include "platform/base/collections/List.h"

namespace utility
{

class CObject;

/// List of object pointers; the objects are not owned.
class CObList : public CList<CObject*, CObject*>
{
public:
    using CList::CList;
};

} // namespace utility
