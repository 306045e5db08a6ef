#include "support/PrintText.h"

#include "platform/base/Encoding.h"

#include <iomanip>

namespace utility
{

void PrintTo(const CString& text, std::ostream* stream)
{
    *stream << "u\"";
    for (const char16_t unit : text.View())
    {
        const bool plain = unit >= u' ' && unit != 0x7F && (unit < 0xD800 || unit > 0xDFFF);
        if (plain)
            *stream << ToUtf8(std::u16string_view(&unit, 1));
        else
            *stream << "\\u" << std::hex << std::setw(4) << std::setfill('0')
                    << static_cast<unsigned>(unit) << std::dec;
    }
    *stream << '"';
}

} // namespace utility
