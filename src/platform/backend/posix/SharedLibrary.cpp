#include "platform/system/SharedLibrary.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileCalls.h"

#include <cerrno>
#include <dlfcn.h>
#include <unistd.h>

namespace utility
{

HMODULE LoadLibraryW(const CString& path)
{
    // With a separator, so that the loader looks here alone and not along its own folders.
    const std::string diskPath = DiskPath(GetFullPathNameW(path).View());
    if (access(diskPath.c_str(), F_OK) != 0)
    {
        FailOnPath(errno, diskPath);
        return nullptr;
    }
    // All names are bound now: what is missing fails here and not in the middle of a call.
    HMODULE const module = dlopen(diskPath.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module)
        SetLastError(ERROR_BAD_EXE_FORMAT);
    return module;
}

void* GetProcAddress(HMODULE module, const char* name)
{
    void* const address = module ? dlsym(module, name) : nullptr;
    if (!address)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return address;
}

bool FreeLibrary(HMODULE module)
{
    if (module && dlclose(module) == 0)
        return true;
    SetLastError(ERROR_INVALID_HANDLE);
    return false;
}

} // namespace utility
