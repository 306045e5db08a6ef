#include "text/TokenArray.h"

#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace utility;

// Whatever tokens a text gives, they are written and read back exactly.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    CStringArray tokens;
    StringToTokenArray(&text, &tokens, u',', u'"', false);

    CString written;
    CStringArray back;
    TokenArrayToString(&written, &tokens, u',', u'"', 0, true);
    StringToTokenArray(&written, &back, u',', u'"', false);
    if (back.GetSize() != tokens.GetSize())
        std::abort();
    for (int i = 0; i < back.GetSize(); ++i)
    {
        if (back[i] != tokens[i])
            std::abort();
    }
    return 0;
}
