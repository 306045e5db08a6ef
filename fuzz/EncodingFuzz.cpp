#include "platform/base/Encoding.h"

#include "Require.h"

#include <cstdint>
#include <string>

using namespace utility;

namespace
{

// Whatever the bytes are: the count that is told is the count that is written, and what was read
// can be written and reads back the same.
void CheckPage(UINT page, std::string_view bytes)
{
    const auto size = static_cast<int>(bytes.size());
    const CString text = FromBytes(page, bytes);
    Require(text.GetLength() <= size);
    Require(MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0) == text.GetLength());

    const std::string written = ToBytes(page, text.View());
    Require(WideCharToMultiByte(page, 0, text, text.GetLength(), nullptr, 0, nullptr, nullptr) ==
            static_cast<int>(written.size()));
    if (page == CP_UTF8)
        Require(FromBytes(page, written) == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const UINT page : {CP_UTF8, 437U, 1252U, 20127U, 932U, 50220U})
        CheckPage(page, bytes);

    // The same bytes as units, lone surrogates and all.
    std::u16string units(size / sizeof(char16_t), u'\0');
    bytes.copy(reinterpret_cast<char*>(units.data()), units.size() * sizeof(char16_t));
    const CString once = FromUtf8(ToUtf8(units));
    Require(FromUtf8(ToUtf8(once.View())) == once);
    return 0;
}
