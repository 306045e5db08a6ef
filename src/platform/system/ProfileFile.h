#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace utility
{

/// A sectioned text file (INI) as a value: read whole, changed in memory, written whole.
///
///     [section]        headers and keys are found whatever their case
///     ; note           lines that begin with ; and lines without = are no entries
///     key = value      blanks around the key are dropped; the value is all behind the first "="
///
/// Values are neither trimmed nor unquoted. A section met twice has the lines of both; of equal
/// keys the first counts. Read are byte order marks, then valid UTF-8, else Windows-1252. Plain
/// ASCII content is written as bytes, any other as UTF-16LE with its mark; lines end CR LF.
class UTILITY_CORE_API CProfileFile
{
public:
    using CEntries = std::vector<std::pair<CString, CString>>;

    // Files; neither touches the last error

    /// False if the file is absent or cannot be read; the content is then empty.
    [[nodiscard]] bool Load(const CString& path);

    /// Replaces the file as a whole, through a file beside it, or leaves it as it was and is false.
    [[nodiscard]] bool Save(const CString& path) const;

    /// From and to what a file holds.
    void Parse(std::string_view bytes);
    std::string Format() const;

    /// The section's entries in file order; null if there is no such section.
    const CEntries* FindSection(const CString& section) const;

    /// Null if there is no such entry.
    const CString* FindValue(const CString& section, const CString& key) const;

    std::vector<CString> GetSectionNames() const;

    /// Of the file as it was read, whatever it holds.
    const CString& GetFirstLine() const { return m_FirstLine; }

    void AddSection(const CString& section);

    /// Sets the entry, behind the section's others if it is new; makes the section if need be.
    void SetValue(const CString& section, const CString& key, const CString& value);
    void DeleteValue(const CString& section, const CString& key);
    void DeleteSection(const CString& section);

    /// False for what a line could not give back: a line end anywhere, "=", outer blanks or a
    /// leading ";" or "[" in the key, an empty key, "]" in a section.
    static bool CanHold(std::u16string_view section, std::u16string_view key,
                        std::u16string_view value);

private:
    struct CSection
    {
        CString m_Name;
        CEntries m_Entries;
        std::unordered_map<CString, std::size_t> m_Index; // folded key to its first place
    };

    CSection& ProvideSection(const CString& name);
    const CSection* LookUpSection(const CString& name) const;
    static void Append(CSection& section, const CString& key, const CString& value);
    void ParseText(std::u16string_view text);

    std::vector<CSection> m_Sections;
    std::unordered_map<CString, std::size_t> m_Index; // folded name to place
    CString m_FirstLine;
};

/// One value into a buffer of `size` units; a missing one gives the default. A null key lists the
/// section's keys, a null section the sections, each with a zero behind it and one more at the end.
/// The result counts the units without the last zero; a full buffer is cut and tells size - 1, for
/// lists size - 2. Never touches the last error.
UTILITY_CORE_API DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR preset,
                                                char16_t* buffer, DWORD size, LPCWSTR file);

/// Sets one value and writes the file; a null value deletes the entry, a null key the section. For
/// many values use `CProfileFile`: this reads and writes the whole file each time. Never touches
/// the last error.
[[nodiscard]] UTILITY_CORE_API BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key,
                                                               LPCWSTR value, LPCWSTR file);

} // namespace utility
