#pragma once

#include "platform/base/String.h"
#include "platform/base/collections/Map.h"

namespace utility
{

/// Map from texts, case counting, to plain pointers; what they point at is not owned.
class CMapStringToPtr : public CMap<CString, const CString&, void*, void*>
{
public:
    using CMap::CMap;
};

} // namespace utility
