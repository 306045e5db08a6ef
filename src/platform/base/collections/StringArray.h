#pragma once

#include "platform/base/String.h"
#include "platform/base/collections/Array.h"

namespace utility
{

/// Array of texts.
class CStringArray : public CArray<CString, const CString&>
{
};

} // namespace utility
