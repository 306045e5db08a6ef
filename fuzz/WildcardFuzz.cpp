#include "platform/base/String.h"
#include "text/match/StringCompare.h"
#include "text/match/StringMatch.h"
#include "text/match/WildcardMatcher.h"

#include "Require.h"

#include <cstdint>
#include <string>

using namespace utility;

namespace
{

/// Each byte as one unit, up to the first zero.
std::u16string Units(std::string_view bytes)
{
    std::u16string text;
    for (const char byte : bytes.substr(0, bytes.find('\0')))
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return text;
}

} // namespace

// A pattern, a line end and a text: all forms of the match agree, and the order of the two turns
// round with its arguments.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t lineEnd = std::min(bytes.find('\n'), size);
    const std::u16string pattern = Units(bytes.substr(0, lineEnd));
    const std::u16string text = Units(bytes.substr(std::min(lineEnd + 1, size)));

    for (const bool caseSensitive : {false, true})
    {
        CString residue;
        const bool matches = StringMatch(pattern.c_str(), text.c_str(), caseSensitive);
        Require(StringMatchWithResidue(pattern.c_str(), text.c_str(), residue, caseSensitive) ==
                matches);
        Require(residue.GetLength() <= static_cast<int>(CMatchResidue::LIMIT));
        const CWildcardPattern ready(pattern, caseSensitive);
        Require(CWildcardMatcher(ready, text.c_str(), nullptr, 0).Match() == matches);

        const int order = StringCompare(pattern.c_str(), text.c_str(), caseSensitive, true, true);
        Require(StringCompare(text.c_str(), pattern.c_str(), caseSensitive, true, true) == -order);
    }
    return 0;
}
