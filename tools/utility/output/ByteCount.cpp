#include "utility/output/ByteCount.h"

namespace utility
{

std::optional<std::uint64_t> ReadByteCount(const CString& text)
{
    std::uint64_t factor = 1;
    std::u16string_view digits = text.View();
    constexpr std::u16string_view SUFFIXES = u"KMG";
    const std::size_t power = digits.empty() ? SUFFIXES.npos : SUFFIXES.find(digits.back());
    if (power != SUFFIXES.npos)
    {
        digits.remove_suffix(1);
        factor = std::uint64_t{1} << 10U * (power + 1);
    }
    constexpr std::size_t DIGIT_LIMIT = 9;
    std::uint64_t count = 0;
    for (const char16_t unit : digits)
    {
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        count = count * 10 + (unit - u'0');
    }
    if (digits.empty() || digits.size() > (factor == 1 ? 2 * DIGIT_LIMIT : DIGIT_LIMIT))
        return std::nullopt;
    return count * factor;
}

} // namespace utility
