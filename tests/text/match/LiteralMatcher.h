#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace utility
{

struct CLiteralMatch
{
    bool m_Matches;
    std::u16string m_Residue;
};

/// The rules of the pattern language as they are laid down, one recursive call a rule: slow, and
/// kept apart from the library's own reading of them. Nothing if the walk takes more steps.
std::optional<CLiteralMatch> MatchLiterally(const std::u16string& pattern,
                                            const std::u16string& text, bool caseSensitive,
                                            std::uint64_t stepLimit = 1'000'000);

} // namespace utility
