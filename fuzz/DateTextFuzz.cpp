#include "text/time/DateText.h"

#include "platform/base/Encoding.h"
#include "platform/system/Locale.h"

#include "Require.h"

#include <cstdint>
#include <string_view>

using namespace utility;

// What is read prints and reads back the same, in both readers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));

    std::int64_t count = 0;
    if (ConvertDateTimeStringToI64(text, count, u"YMD"))
    {
        std::int64_t back = 0;
        Require(ConvertDateTimeStringToI64(ConvertI64TimeStampToPgDateString(count), back, u"YMD"));
        Require(back == count);
    }

    DATE date = 0;
    const CDateCustoms customs = ReadDatePattern("%d.%m.%Y");
    if (ReadLocaleDate(text, customs, date) == S_OK)
    {
        CString shown;
        DATE back = 0;
        Require(FormatLocaleDate(date, customs, shown) == S_OK);
        Require(ReadLocaleDate(shown, customs, back) == S_OK);
        Require(back == date);
    }
    return 0;
}
