#include "utility/host/ArgumentList.h"

#include "platform/base/Encoding.h"
#include "platform/db/ConnectString.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace utility
{

namespace
{

/// Where the value of "--option=value" begins; 0 for any other word.
std::size_t FindValue(std::string_view word)
{
    const std::size_t equals = word.find('=');
    return word.starts_with("--") && equals != std::string_view::npos ? equals + 1 : 0;
}

} // namespace

void HidePasswords(int count, char** arguments)
{
    for (int index = 0; index < count; index++)
    {
        const std::string_view word(arguments[index]);
        const std::size_t start = FindValue(word);
        const CString text = FromUtf8(word.substr(start));
        const CString masked = MaskPasswords(text.View());
        if (masked == text)
            continue;
        std::string shown = ToUtf8(masked.View());
        shown.resize(word.size() - start, ' '); // neither longer nor shorter than the list has room
        std::copy(shown.begin(), shown.end(), arguments[index] + start);
    }
}

} // namespace utility
