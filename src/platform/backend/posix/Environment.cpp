#include "platform/system/Environment.h"

#include "platform/base/Encoding.h"

#include <cstdlib>

namespace utility
{

std::optional<CString> _wgetenv(const CString& name)
{
    const char* value = std::getenv(ToUtf8(name.View()).c_str());
    if (!value)
        return std::nullopt;
    return FromUtf8(value);
}

} // namespace utility
