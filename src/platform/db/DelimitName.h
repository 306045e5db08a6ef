#pragma once

#include "platform/base/String.h"

namespace utility
{

/// A name as the calls want it that put brackets around it as it stands, such as `TableExists`.
inline CString DoubleBrackets(CString name)
{
    name.Replace(u"]", u"]]");
    return name;
}

/// A name within brackets, as a statement for any source names it.
inline CString DelimitName(const CString& name)
{
    return u"[" + DoubleBrackets(name) + u"]";
}

} // namespace utility
