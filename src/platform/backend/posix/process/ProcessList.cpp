#include "platform/system/process/ProcessList.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/process/HandleTable.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <dirent.h>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace utility
{

namespace
{

constexpr char PROCESSES[] = "/proc";
constexpr std::string_view GONE_MARK = " (deleted)"; // behind a program whose file was replaced

struct CProcessSnapshot : public HandleRecord
{
    DWORD Wait(DWORD) override { return WAIT_OBJECT_0; }

    std::vector<DWORD> m_Processes;
    std::size_t m_Next = 0;
};

CString ShortName(const std::string& folder)
{
    std::ifstream file(folder + "/comm");
    std::string name;
    std::getline(file, name);
    return FromUtf8(name);
}

CString ProgramOf(DWORD process)
{
    const std::string folder = std::string(PROCESSES) + "/" + std::to_string(process);
    std::array<char, 4096> path{}; // the kernel's longest path
    const ssize_t length = ::readlink((folder + "/exe").c_str(), path.data(), path.size());
    if (length <= 0) // what has ended and waits to be collected has no program any more
        return errno == EACCES ? ShortName(folder) : CString();
    std::string_view name(path.data(), static_cast<std::size_t>(length));
    if (name.ends_with(GONE_MARK))
        name.remove_suffix(GONE_MARK.size());
    return ClassicFromDisk(name);
}

bool ReadProcesses(std::vector<DWORD>& processes)
{
    DIR* folder = ::opendir(PROCESSES);
    if (!folder)
    {
        SetLastErrorFromErrno();
        return false;
    }
    while (const dirent* entry = ::readdir(folder))
    {
        const std::string_view name = entry->d_name;
        DWORD process = 0;
        const auto [end, error] = std::from_chars(name.begin(), name.end(), process);
        if (error == std::errc() && end == name.end())
            processes.push_back(process);
    }
    ::closedir(folder);
    return true;
}

} // namespace

HANDLE CreateToolhelp32Snapshot(DWORD flags, DWORD)
{
    if (flags != TH32CS_SNAPPROCESS)
    {
        SetLastError(ERROR_NOT_SUPPORTED);
        return INVALID_HANDLE_VALUE;
    }
    const auto snapshot = std::make_shared<CProcessSnapshot>();
    return ReadProcesses(snapshot->m_Processes) ? AddHandle(snapshot) : INVALID_HANDLE_VALUE;
}

bool Process32FirstW(HANDLE handle, PROCESSENTRY32W& entry)
{
    if (const auto snapshot = FindHandleAs<CProcessSnapshot>(handle))
        snapshot->m_Next = 0;
    return Process32NextW(handle, entry);
}

bool Process32NextW(HANDLE handle, PROCESSENTRY32W& entry)
{
    const std::shared_ptr<CProcessSnapshot> snapshot = FindHandleAs<CProcessSnapshot>(handle);
    if (!snapshot)
        return false;
    while (snapshot->m_Next < snapshot->m_Processes.size())
    {
        const DWORD process = snapshot->m_Processes[snapshot->m_Next++];
        entry = {process, ProgramOf(process)};
        if (!entry.szExeFile.IsEmpty()) // else it has ended meanwhile
            return true;
    }
    SetLastError(ERROR_NO_MORE_FILES);
    return false;
}

} // namespace utility
