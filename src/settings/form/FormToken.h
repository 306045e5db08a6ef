#pragma once

#include <string_view>

namespace utility
{

/// One token of form text; refers to the reader's line until the next one is read.
struct CFormToken
{
    std::u16string_view text;
    bool quoted = false;

    bool IsSingle() const { return text.size() == 1; }
};

} // namespace utility
