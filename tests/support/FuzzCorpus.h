#pragma once

#include "platform/base/Encoding.h"
#include "platform/base/String.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace utility
{

/// The texts that a fuzz target begins with, for the ordinary test that replays them; none if the
/// folder is gone.
inline std::vector<CString> ReadFuzzCorpus(const std::string& target)
{
    std::vector<CString> texts;
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::path(UTILITY_FUZZ_DATA) / target;
    for (const auto& entry : std::filesystem::directory_iterator(folder, failure))
    {
        std::ifstream file(entry.path(), std::ios::binary);
        texts.push_back(FromUtf8(std::string(std::istreambuf_iterator<char>(file), {})));
    }
    return texts;
}

} // namespace utility
