#include "platform/backend/posix/window/LiveFiles.h"

#include "platform/backend/posix/RuntimeFolder.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/system/window/LiveFolder.h"

#include <cerrno>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char LIVE_FOLDER[] = "/windows";
constexpr mode_t PRIVATE_FOLDER_MODE = 0700;

template <typename TNumber>
bool TakeNumber(std::string_view& text, TNumber& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

/// The ticks at which a process was started, as the kernel tells them; 0 for none that lives.
std::uint64_t ReadStart(DWORD process)
{
    constexpr int START_FIELD = 19; // behind the state, which is the first behind the name
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    const std::size_t nameEnd = text.rfind(") "); // the name itself may hold brackets and blanks
    if (nameEnd == std::string::npos || nameEnd + 2 >= text.size())
        return 0;

    std::string_view fields = std::string_view(text).substr(nameEnd + 2);
    const bool hasEnded = fields[0] == 'Z' || fields[0] == 'X';
    for (int i = 0; i < START_FIELD && !fields.empty(); ++i)
        fields.remove_prefix(std::min(fields.find(' '), fields.size() - 1) + 1);
    std::uint64_t start = 0;
    return !hasEnded && TakeNumber(fields, start) ? start : 0;
}

} // namespace

CProcessStamp GetOwnStamp()
{
    const auto process = static_cast<DWORD>(getpid());
    return {process, ReadStart(process)};
}

bool IsAlive(const CProcessStamp& process)
{
    return process.m_Start != 0 && ReadStart(process.m_Id) == process.m_Start;
}

std::string GetLiveFolder()
{
    std::string folder = GetRuntimeFolder();
    if (folder.empty())
        return folder;
    folder += LIVE_FOLDER;
    if (mkdir(folder.c_str(), PRIVATE_FOLDER_MODE) == 0 || errno == EEXIST)
        return folder;
    FailOnPath(errno, folder);
    return {};
}

std::string LiveFileName(const CProcessStamp& process, std::string_view extension)
{
    return std::to_string(process.m_Id) + "-" + std::to_string(process.m_Start) +
           std::string(extension);
}

bool ParseLiveFileName(std::string_view name, CProcessStamp& process)
{
    CProcessStamp read;
    if (!TakeNumber(name, read.m_Id) || !name.starts_with('-'))
        return false;
    name.remove_prefix(1);
    if (!TakeNumber(name, read.m_Start) || !name.starts_with('.'))
        return false;
    process = read;
    return true;
}

} // namespace utility
