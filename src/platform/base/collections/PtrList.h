#pragma once

#include "platform/base/collections/List.h"

namespace utility
{

/// List of plain pointers; what they point at is not owned.
class CPtrList : public CList<void*, void*>
{
public:
    using CList::CList;
};

} // namespace utility
