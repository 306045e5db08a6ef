#pragma once

#include "platform/base/String.h"
#include "platform/base/collections/List.h"

namespace utility
{

/// List of texts.
class CStringList : public CList<CString, const CString&>
{
public:
    using CList::CList;
};

} // namespace utility
