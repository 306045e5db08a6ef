#include "platform/base/MessageFormat.h"
#include "platform/base/PrintFormat.h"
#include "platform/base/String.h"
#include "resources/StringTable.h"

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

bool CString::LoadString(UINT id)
{
    const char16_t* text = CStringTable::Find(id);
    if (!text)
        return false;
    *this = text;
    return true;
}

} // namespace utility
