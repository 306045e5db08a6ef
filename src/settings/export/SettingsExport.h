#pragma once

#include "settings/export/SettingsFault.h"
#include "settings/export/SettingsTree.h"

#include <string>
#include <string_view>

namespace utility
{

/// Settings as a text file with types, for people and other programs:
/// docs/formats/settings-export.md. Other than a configuration file it keeps every type and every
/// name.
enum class ESettingsFormat
{
    Xml,
    Form
};

/// Writes a key with all below it to a file, which is replaced as a whole or left alone.
///
/// False, with the fault, if the key or the file fails, or a value could not come back.
[[nodiscard]] UTILITY_CORE_API bool ExportSettings(HKEY root, const CString& key,
                                                   ESettingsFormat format, const CString& file,
                                                   CSettingsFault& fault);

/// Merges an exported file into a key: all of it in one transaction, or nothing. The key's last
/// name has to be the one that the file was exported from, in any case of letters.
[[nodiscard]] UTILITY_CORE_API bool ImportSettings(HKEY root, const CString& key,
                                                   ESettingsFormat format, const CString& file,
                                                   CSettingsFault& fault);

// The same in steps

/// As `ExportSettings`, for a tree at hand; `name` is that of its top.
[[nodiscard]] UTILITY_CORE_API bool SaveSettings(const CSettingsTree& tree, const CString& name,
                                                 ESettingsFormat format, const CString& file,
                                                 CSettingsFault& fault);
[[nodiscard]] UTILITY_CORE_API bool FormatSettings(const CSettingsTree& tree, const CString& name,
                                                   ESettingsFormat format, std::string& bytes,
                                                   CSettingsFault& fault);
[[nodiscard]] UTILITY_CORE_API bool ParseSettings(std::string_view bytes, const CString& name,
                                                  ESettingsFormat format, CSettingsTree& tree,
                                                  CSettingsFault& fault);

} // namespace utility
