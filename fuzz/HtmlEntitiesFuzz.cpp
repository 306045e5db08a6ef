#include "text/HtmlEntities.h"

#include "platform/base/Encoding.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace utility;

// The result is never longer than the text, and decoding in place gives the same as decoding aside.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    const auto room = static_cast<std::size_t>(text.GetLength()) + 1;

    std::u16string aside(room, u'x');
    const unsigned int length = DecodeHtmlEntitiesUtf8(aside.data(), text);
    if (length >= room || aside[length] != 0)
        std::abort();

    std::u16string place(text.View());
    place.push_back(0);
    if (DecodeHtmlEntitiesUtf8(place.data(), place.data()) != length ||
        place.compare(0, length, aside, 0, length) != 0)
        std::abort();
    return 0;
}
