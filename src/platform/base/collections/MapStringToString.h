#pragma once

#include "platform/base/String.h"
#include "platform/base/collections/Map.h"

namespace utility
{

/// Map from texts, case counting, to texts.
class CMapStringToString : public CMap<CString, const CString&, CString, const CString&>
{
public:
    using CMap::CMap;
};

} // namespace utility
