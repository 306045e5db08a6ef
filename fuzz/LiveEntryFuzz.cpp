#include "platform/system/window/LiveEntry.h"

#include "platform/system/window/WindowOrder.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

// What is read can be written, and then reads back as the same.
void ReadAsEntry(std::string_view text)
{
    CLiveEntry entry;
    if (!ParseLiveEntry(text, entry))
        return;
    Require(entry.m_Windows.size() <= LIVE_WINDOW_LIMIT);
    CLiveEntry again;
    const std::string written = FormatLiveEntry(entry);
    Require(written.size() <= LIVE_ENTRY_LIMIT);
    Require(ParseLiveEntry(written, again) && FormatLiveEntry(again) == written);
}

void ReadAsOrder(std::string_view text)
{
    CWindowOrder order;
    if (!ParseWindowOrder(text, order))
        return;
    const std::string written = FormatWindowOrder(order);
    CWindowOrder again;
    // A name of many escapes may grow past what can be sent; then nothing is.
    Require(written.empty() ||
            (ParseWindowOrder(written, again) && FormatWindowOrder(again) == written));
}

} // namespace

// An entry and an order come from other processes: either parser gets the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ReadAsEntry(text);
    ReadAsOrder(text);
    return 0;
}
