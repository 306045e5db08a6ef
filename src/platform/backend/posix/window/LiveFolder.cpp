#include "platform/system/window/LiveFolder.h"

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/backend/posix/window/LiveFiles.h"
#include "platform/base/LastError.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>

namespace utility
{

namespace
{

constexpr mode_t PRIVATE_MODE = 0600;
constexpr std::string_view NEW_EXTENSION = ".new"; // an entry that is being written

bool WriteWhole(const std::string& path, std::string_view bytes)
{
    const CDescriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, PRIVATE_MODE));
    while (file && !bytes.empty())
    {
        const ssize_t count = write(file.Get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return FailOnPath(errno, path);
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return file || FailOnPath(errno, path);
}

/// Empty for what is no plain file, or larger than an entry can be.
std::string ReadSmallFile(const std::string& path)
{
    const CDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!file || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > static_cast<off_t>(LIVE_ENTRY_LIMIT))
        return {};
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    while (length < bytes.size())
    {
        const ssize_t count = read(file.Get(), bytes.data() + length, bytes.size() - length);
        if (count <= 0)
            break;
        length += static_cast<std::size_t>(count);
    }
    bytes.resize(length);
    return bytes;
}

std::vector<std::string> ListNames(const std::string& folder)
{
    std::vector<std::string> names;
    DIR* stream = opendir(folder.c_str());
    while (const dirent* entry = stream ? readdir(stream) : nullptr)
        names.emplace_back(entry->d_name);
    if (stream)
        closedir(stream);
    return names;
}

/// The processes but the own one that have a file in the folder and live; the files of others are
/// removed. A listing may miss an entry that is replaced at the time, yet not the socket beside it.
std::set<CProcessStamp> ListLiving(const std::string& folder)
{
    std::set<CProcessStamp> living;
    const CProcessStamp own = GetOwnStamp();
    for (const std::string& name : ListNames(folder))
    {
        CProcessStamp process;
        if (!ParseLiveFileName(name, process) || process == own)
            continue;
        // The stamp is in the name, so what is removed here is no living program's.
        if (living.contains(process) || IsAlive(process))
            living.insert(process);
        else
            unlink((folder + "/" + name).c_str());
    }
    return living;
}

} // namespace

bool PublishLiveEntry(const CLiveEntry& entry)
{
    const std::string folder = GetLiveFolder();
    if (folder.empty())
        return false;
    const std::string written = folder + "/" + LiveFileName(entry.m_Process, NEW_EXTENSION);
    const std::string path = folder + "/" + LiveFileName(entry.m_Process, ENTRY_EXTENSION);
    if (!WriteWhole(written, FormatLiveEntry(entry)))
        return false;
    return rename(written.c_str(), path.c_str()) == 0 || FailOnPath(errno, path);
}

void WithdrawLiveEntry()
{
    const std::string folder = GetLiveFolder();
    if (!folder.empty())
        unlink((folder + "/" + LiveFileName(GetOwnStamp(), ENTRY_EXTENSION)).c_str());
}

std::vector<CLiveEntry> ReadLiveEntries()
{
    const CLastErrorKeeper keeper; // no folder is no failure: then nobody is seen
    std::vector<CLiveEntry> entries;
    const std::string folder = GetLiveFolder();
    for (const CProcessStamp& process :
         folder.empty() ? std::set<CProcessStamp>() : ListLiving(folder))
    {
        const std::string path = folder + "/" + LiveFileName(process, ENTRY_EXTENSION);
        CLiveEntry entry;
        if (ParseLiveEntry(ReadSmallFile(path), entry) && entry.m_Process == process)
            entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace utility
