#include "platform/base/Encoding.h"
#include "text/numbers/LengthUnit.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

// Reading never touches the second value, and leaves the output alone when it fails.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CString text = FromUtf8({reinterpret_cast<const char*>(data), size});
    double first = 0;
    double second = 1;
    EBaseLengthUnit unit1 = EBaseLengthUnit::NoUnit;
    EBaseLengthUnit unit2 = EBaseLengthUnit::NoUnit;
    const bool reads = CLengthUnit::ReadLengthValue(text, first, unit1, second, unit2, u'.');
    Require(second == 0);

    double value = 7;
    Require(CLengthUnit::ReadLengthValue(CLengthUnit(), CLengthUnit(), text, value) == reads);
    Require(reads || value == 7);
    return 0;
}
