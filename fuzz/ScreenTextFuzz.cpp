#include "Require.h"
#include "utility/output/ScreenWidth.h"
#include "utility/output/ToolOutput.h"

#include <cstdint>
#include <cstring>

using namespace utility;

namespace
{

/// The bytes as units, so that halves of pairs come too.
CString UnitsOf(const std::uint8_t* data, std::size_t size)
{
    std::u16string units(size / 2, u'\0');
    std::memcpy(units.data(), data, units.size() * 2);
    return CString(std::u16string_view(units));
}

} // namespace

/// A cell of any text, cut and padded, takes just the columns that it is given, and what is shown
/// of it is its beginning. The first byte is the width.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const int width = data[0];
    const CString text = Printable(UnitsOf(data + 1, size - 1));
    const CString cut = CutToWidth(text, width);
    Require(ScreenWidth(cut) <= width);
    Require(ScreenWidth(PadToWidth(cut, width)) == width);
    if (ScreenWidth(text) <= width)
        Require(cut == text);
    else if (width > 0)
        Require(cut == text.Left(cut.GetLength() - 1) + u"…");
    return 0;
}
