#include "platform/backend/sqlite/HivePath.h"

#include "platform/base/CaseFold.h"

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u'\\';

bool IsLead(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrail(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendCodePoint(std::string& bytes, char32_t point)
{
    const auto tail = [point](int shift)
    {
        return static_cast<char>(0x80 | ((point >> shift) & 0x3F));
    };
    if (point < 0x800)
    {
        bytes += {static_cast<char>(0xC0 | (point >> 6)), tail(0)};
        return;
    }
    if (point < 0x10000)
        bytes += static_cast<char>(0xE0 | (point >> 12));
    else
        bytes += {static_cast<char>(0xF0 | (point >> 18)), tail(12)};
    bytes += {tail(6), tail(0)};
}

/// Puts one character behind the bytes and steps over its units; false for a lone surrogate.
template <bool FOLD>
bool AppendCharacter(std::string& bytes, std::u16string_view text, std::size_t& at)
{
    const char16_t unit = FOLD ? ToLower(text[at]) : text[at];
    ++at;
    if (unit < 0x80)
    {
        bytes += static_cast<char>(unit);
        return true;
    }
    if (!IsLead(unit))
    {
        AppendCodePoint(bytes, unit);
        return !IsTrail(unit);
    }
    if (at == text.size() || !IsTrail(text[at]))
        return false;
    AppendCodePoint(bytes, 0x10000 + ((unit - 0xD800U) << 10) + (text[at] - 0xDC00U));
    ++at;
    return true;
}

} // namespace

bool FoldName(std::u16string_view name, std::string& folded)
{
    folded.clear();
    folded.reserve(name.size());
    for (std::size_t at = 0; at < name.size();)
    {
        if (!AppendCharacter<true>(folded, name, at))
            return false;
    }
    return true;
}

bool AppendFoldedPath(std::string& path, std::u16string_view tail)
{
    path.reserve(path.size() + tail.size() + 1);
    bool between = true;
    for (std::size_t at = 0; at < tail.size();)
    {
        if (tail[at] == SEPARATOR)
        {
            between = true;
            ++at;
            continue;
        }
        if (between && !path.empty())
            path += '\\';
        between = false;
        if (!AppendCharacter<true>(path, tail, at))
            return false;
    }
    return true;
}

bool SplitSpelledPath(std::u16string_view path, std::vector<std::string>& names)
{
    bool between = true;
    for (std::size_t at = 0; at < path.size();)
    {
        if (path[at] == SEPARATOR)
        {
            between = true;
            ++at;
            continue;
        }
        if (between)
            names.emplace_back();
        between = false;
        if (!AppendCharacter<false>(names.back(), path, at))
            return false;
    }
    return true;
}

std::string_view ParentOf(std::string_view path)
{
    const std::size_t cut = path.rfind('\\');
    return cut == std::string_view::npos ? std::string_view() : path.substr(0, cut);
}

} // namespace utility
