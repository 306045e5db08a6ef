#include "support/FormatPage.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace utility
{

namespace
{

constexpr std::size_t INDENT = 4;

/// Empty for a line of another kind.
std::string BytesOf(const std::string& line)
{
    const std::size_t bar = line.find("  |");
    if (bar == std::string::npos || !line.starts_with(std::string(INDENT, ' ')))
        return {};
    std::string bytes;
    for (std::size_t at = INDENT; at + 1 < bar;)
    {
        unsigned byte = 0;
        const char* digits = line.data() + at;
        if (*digits == ' ')
        {
            ++at;
            continue;
        }
        if (std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
            return {};
        bytes += static_cast<char>(byte);
        at += 2;
    }
    std::string shown;
    for (const char byte : bytes)
        shown += byte >= 0x20 && byte < 0x7F ? byte : '.';
    if (line.substr(bar + 3) != shown + "|")
        throw std::runtime_error("the listing shows other bytes: " + line);
    return bytes;
}

} // namespace

std::string ReadByteListing(const std::string& page, int number)
{
    const auto path = std::filesystem::path(UTILITY_TEST_DATA) / "../../docs/formats" / page;
    std::ifstream file(path.lexically_normal());
    std::string listing;
    int ended = 0; // listings before the present line
    bool wasRow = false;
    for (std::string line; ended <= number && std::getline(file, line);)
    {
        const std::string bytes = BytesOf(line);
        if (bytes.empty() && wasRow)
            ++ended;
        else if (ended == number)
            listing += bytes;
        wasRow = !bytes.empty();
    }
    if (listing.empty())
        throw std::runtime_error("no such listing in " + page);
    return listing;
}

} // namespace utility
