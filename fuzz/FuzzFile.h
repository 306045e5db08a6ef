#pragma once

#include "platform/base/Encoding.h"

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <unistd.h>

/// A file in memory for a target that reads files; one a name and process, replaced by each input.
inline utility::CString MakeFuzzFile(const char* name, std::string_view bytes)
{
    const std::string native = std::string("/dev/shm/") + name + "-" + std::to_string(getpid());
    std::ofstream(native, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return utility::FromUtf8(native);
}

/// What is in such a file by now.
inline std::string ReadFuzzFile(const char* name)
{
    std::ifstream file(std::string("/dev/shm/") + name + "-" + std::to_string(getpid()),
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Removes what MakeFuzzFile made, so that a long run leaves nothing.
inline void RemoveFuzzFile(const char* name)
{
    unlink((std::string("/dev/shm/") + name + "-" + std::to_string(getpid())).c_str());
}
