#pragma once

#include "platform/base/CaseFold.h"
#include "platform/base/String.h"

#include <cstdint>
#include <string_view>

namespace utility
{

/// Hash of a text whose units go through `fold` first; equal for all spellings that fold alike.
template <typename TFold>
constexpr std::size_t HashUnits(std::u16string_view text, TFold fold)
{
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a, a unit a step
    for (const char16_t unit : text)
        hash = (hash ^ fold(unit)) * 0x100000001B3U;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

/// Texts as keys of the standard containers, exactly and without regard to case.
///
///     std::unordered_map<CString, CValue, CStringHash, CStringEqual> exact;
///     std::unordered_map<CString, CValue, CNoCaseHash, CNoCaseEqual> caseBlind;
///     std::map<CString, CValue, CNoCaseLess> sorted;
///
/// All take a view for a look-up, so nothing is copied for it.
struct CStringHash
{
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const
    {
        return HashUnits(text, [](char16_t unit) { return unit; });
    }
    std::size_t operator()(const CString& text) const { return (*this)(text.View()); }
};

struct CNoCaseHash
{
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const { return HashUnits(text, ToLower); }
    std::size_t operator()(const CString& text) const { return (*this)(text.View()); }
};

/// The view that a key is compared by.
inline std::u16string_view KeyView(std::u16string_view key)
{
    return key;
}
inline std::u16string_view KeyView(const CString& key)
{
    return key.View();
}

struct CStringEqual
{
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const
    {
        return KeyView(left) == KeyView(right);
    }
};

struct CNoCaseEqual
{
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const
    {
        return EqualNoCase(KeyView(left), KeyView(right));
    }
};

struct CNoCaseLess
{
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const
    {
        return CompareNoCase(KeyView(left), KeyView(right)) < 0;
    }
};

/// The text as the case-blind key that is stored or sent: each unit lower-cased.
inline CString NoCaseKey(const CString& text)
{
    CString key = text;
    key.MakeLower();
    return key;
}

} // namespace utility
