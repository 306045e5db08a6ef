#include "support/PeakMemory.h"

#include "support/ChildProcess.h"

#include <algorithm>
#include <fstream>
#include <malloc.h>
#include <string>

namespace utility
{

namespace
{

constexpr std::size_t KILOBYTES_OF_MEGABYTE = 1024;
constexpr int FAILED = 255;

/// The most memory that this process has held, in kilobytes.
std::size_t PeakKilobytes()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != "VmHWM:")
    {
    }
    std::size_t kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
}

} // namespace

int PeakMegabytes(const std::function<bool()>& work)
{
    CChildProcess child(
        [&]
        {
            malloc_trim(0);
            std::ofstream("/proc/self/clear_refs") << "5"; // the peak begins anew
            const std::size_t before = PeakKilobytes();
            if (!work())
                return FAILED;
            const std::size_t megabytes = (PeakKilobytes() - before) / KILOBYTES_OF_MEGABYTE;
            return static_cast<int>(std::min<std::size_t>(megabytes, FAILED));
        });
    const int result = child.Wait();
    return result < 0 ? FAILED : result;
}

} // namespace utility
