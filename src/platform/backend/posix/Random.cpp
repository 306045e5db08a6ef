#include "platform/system/Random.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr std::size_t ENTROPY_LIMIT = 256; // bytes a call

void FillFromSystem(void* bytes, std::size_t count)
{
    auto* place = static_cast<char*>(bytes);
    while (count > 0)
    {
        const std::size_t piece = std::min(count, ENTROPY_LIMIT);
        // Fails only where the kernel has no such call; bytes that anybody can guess are no answer.
        if (::getentropy(place, piece) != 0)
            std::abort();
        place += piece;
        count -= piece;
    }
}

constexpr CRandomSource SYSTEM_SOURCE{FillFromSystem};
constinit std::atomic<const CRandomSource*> g_Source{&SYSTEM_SOURCE};

} // namespace

void FillRandom(void* bytes, std::size_t count)
{
    g_Source.load()->m_Fill(bytes, count);
}

void SetRandomSource(const CRandomSource* source)
{
    g_Source = source ? source : &SYSTEM_SOURCE;
}

} // namespace utility
