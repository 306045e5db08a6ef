#pragma once

#include "settings/export/SettingsTree.h"

#include <string_view>

namespace utility
{

/// A value in words: the name of its type and the texts that it is written as.
///
///     type      store                written as
///     text      REG_SZ               one text, which in the store ends in one zero unit
///     texts     REG_MULTI_SZ         any number of texts
///     number    REG_DWORD            decimal, with a sign where negative
///     wide      REG_QWORD            likewise
///     bytes     REG_BINARY           two upper-case hexadecimal digits a byte
struct CSettingsWords
{
    std::u16string_view m_Type;
    std::vector<CString> m_Texts;
};

/// False for what would not come back the same: another type, a number of another size, a text
/// without its end, with a zero unit inside, or with half a unit.
[[nodiscard]] UTILITY_CORE_API bool PutIntoWords(const CSettingsValue& value,
                                                 CSettingsWords& words);

enum class EWordsFault
{
    None,
    Type,  // there is no such type
    Value, // the texts are no value of it
};

/// Type and data of the value; its name stays.
[[nodiscard]] UTILITY_CORE_API EWordsFault ReadFromWords(std::u16string_view type,
                                                         const std::vector<CString>& texts,
                                                         CSettingsValue& value);

} // namespace utility
