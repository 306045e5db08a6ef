#include "platform/base/MessageFormat.h"
#include "platform/base/PrintFormat.h"
#include "platform/base/String.h"

namespace utility
{

void CString::FormatV(const char16_t* format, CFormatArguments arguments)
{
    *this = PrintFormat(format, arguments);
}

void CString::FormatMessageV(const char16_t* format, CFormatArguments arguments)
{
    *this = FormatMessageText(format, arguments);
}

} // namespace utility
