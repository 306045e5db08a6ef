#include "text/Clipboard.h"

#include "platform/system/window/UserInterface.h"

namespace utility
{

bool StringToClipboard(const CString& text)
{
    return GetUserInterface().SetClipboardText(text);
}

} // namespace utility
