#include "text/numbers/Expression.h"

#include "platform/base/Encoding.h"
#include "text/numbers/RealNumber.h"
#include "text/numbers/SIUnit.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

// Every reader stops within the text, wherever it begins.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8({reinterpret_cast<const char*>(data), size});
    const int length = text.GetLength();
    for (const int start : {0, length / 2, length})
    {
        for (const char16_t decimalChar : {u'.', u',', u'\0'})
        {
            double value = 0;
            const int number = ReadRealNumber(value, text, start, decimalChar, true);
            Require(number >= start && number <= length);
            const int expression = EvaluateExpression(value, text, start, decimalChar, false);
            Require(expression >= start && expression <= length);
        }
        double factor = 0;
        Require(ReadSIUnit(factor, text.Mid(start)) <= 1 && factor > 0);
    }
    return 0;
}
