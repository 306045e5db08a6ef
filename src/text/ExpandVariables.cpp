#include "text/ExpandVariables.h"

#include "platform/system/Environment.h"

#include <atomic>

namespace utility
{

namespace
{

constexpr char16_t DEFAULT_MARKER = u'%';
constinit std::atomic<char16_t> g_Marker{DEFAULT_MARKER};

} // namespace

char16_t GetDefaultExpandVariableChar()
{
    return DEFAULT_MARKER;
}

char16_t GetExpandVariableChar()
{
    return g_Marker;
}

void SetExpandVariableChar(char16_t marker)
{
    g_Marker = marker;
}

bool ExpandVariables(CString& text)
{
    return ExpandVariables(text, GetExpandVariableChar());
}

bool ExpandVariables(CString& text, char16_t marker)
{
    const std::u16string_view in = text.View();
    CString out;
    bool isAllFound = true;
    std::size_t done = 0;
    for (;;)
    {
        const std::size_t open = in.find(marker, done);
        const std::size_t close = in.find(marker, open == in.npos ? open : open + 1);
        if (close == in.npos)
            break;

        out += in.substr(done, open - done);
        done = close + 1;
        const std::u16string_view name = in.substr(open + 1, close - open - 1);
        if (name.empty())
            continue;
        const std::optional<CString> value = _wgetenv(CString(name));
        isAllFound = isAllFound && value.has_value();
        out += value ? value->View() : in.substr(open, done - open);
    }
    out += in.substr(done);
    text = out;
    return isAllFound;
}

} // namespace utility
