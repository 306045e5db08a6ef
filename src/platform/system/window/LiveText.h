#pragma once

#include "platform/base/String.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>

namespace utility
{

/// Takes words off the front of a line; one blank stands between two.
class CLiveWords
{
public:
    explicit CLiveWords(std::string_view line) : m_Rest(line) {}

    /// Empty at the end.
    std::string_view Next()
    {
        const std::string_view word = m_Rest.substr(0, m_Rest.find(' '));
        m_Rest.remove_prefix(std::min(word.size() + 1, m_Rest.size()));
        return word;
    }
    /// False if the next word is not a whole number that fits.
    template <typename TNumber>
    bool NextNumber(TNumber& number)
    {
        const std::string_view word = Next();
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        return error == std::errc() && end == word.data() + word.size();
    }
    /// All that is left.
    std::string_view GetRest() const { return m_Rest; }

private:
    std::string_view m_Rest;
};

/// UTF-8 that fits on one line: control characters and "%" as "%0A".
std::string EscapeLiveText(const CString& text);
/// What EscapeLiveText made; a "%" before anything but two digits stands for itself.
CString UnescapeLiveText(std::string_view text);

} // namespace utility
