#include "platform/backend/posix/UserFolders.h"

namespace utility
{

namespace
{

constexpr std::string_view HOME_MARK = "$HOME";

/// What stands between the quotes, escapes undone; empty without a closing quote.
std::string Unquote(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '"')
            return plain;
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        plain += text[i];
    }
    return std::string();
}

std::string ReadValue(std::string_view value, const std::string& home)
{
    if (!value.starts_with('"'))
        return std::string();
    const std::string plain = Unquote(value.substr(1));
    if (plain == HOME_MARK || plain.starts_with(std::string(HOME_MARK) + "/"))
        return home + plain.substr(HOME_MARK.size());
    return plain.starts_with('/') ? plain : std::string();
}

} // namespace

std::string FindUserFolder(std::string_view list, std::string_view name, const std::string& home)
{
    std::string folder;
    while (!list.empty())
    {
        const std::size_t end = std::min(list.find('\n'), list.size());
        std::string_view line = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (line.starts_with(name) && line.substr(name.size()).starts_with('='))
            folder = ReadValue(line.substr(name.size() + 1), home); // the last line counts
    }
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

} // namespace utility
