#include "files/encoded/AnsiText.h"

#include "platform/base/Encoding.h"
#include "platform/base/String.h"

#include <algorithm>

namespace utility
{

namespace
{

bool IsAscii(std::u16string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

void ThroughBytes(CString& text, bool toUtf8)
{
    if (GetACP() == 0 || IsAscii(text.View()))
        return;
    const std::string bytes = ToBytes(toUtf8 ? CP_UTF8 : CP_ACP, text.View());
    if (!bytes.empty())
        text = FromBytes(CP_ACP, bytes);
}

} // namespace

void AnsiToUTF8(CString& text)
{
    ThroughBytes(text, true);
}

void UTF8ToAnsi(CString& text)
{
    ThroughBytes(text, false);
}

} // namespace utility
