#include "platform/db/ConnectString.h"

#include "platform/base/Encoding.h"

#include "Require.h"

#include <cstdint>
#include <string_view>

using namespace utility;

// What is read writes and reads back the same, and no password is left in a masked text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    const CString written = CConnectString(text.View()).Format();
    const CConnectString again(written.View());
    Require(again.Format() == written);
    for (const char16_t* const key : {u"PWD", u"PASSWORD"})
    {
        const CConnectString masked(MaskPasswords(written.View()).View());
        Require(masked.Get(key).IsEmpty() || masked.Get(key) == u"***");
    }
    return 0;
}
