#pragma once

#include "files/zip/ZipInput.h"
#include "files/zip/ZipNameIndex.h"
#include "files/zip/ZipTimes.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// What the directory of an archive tells of an entry.
struct CZipRecord
{
    std::uint64_t m_Offset = 0; // of the local header in the file
    std::uint64_t m_Limit = 0;  // where the next entry begins
    std::uint64_t m_PackedSize = 0;
    std::uint64_t m_Size = 0;
    std::uint32_t m_Crc = 0;
    std::uint32_t m_Attributes = 0;
    std::uint32_t m_DosTime = 0;
    std::uint16_t m_Flags = 0;
    std::uint16_t m_Method = 0;
    unsigned char m_Host = 0;
    std::uint32_t m_NameLength = 0; // units, cleaned
    std::size_t m_NameStart = 0;
    std::optional<std::int32_t> m_Modified; // seconds since 1970
};

/// The directory of an archive that is read, by index and by name.
///
/// Nothing that the file claims is believed: memory and time follow the bytes that are there. All
/// entries lie in front of the directory and none overlaps another.
class CZipDirectory
{
public:
    /// A result code; what was there before is lost.
    std::uint32_t Read(CZipInput& input);

    int GetCount() const { return static_cast<int>(m_Records.size()); }
    const CZipRecord& GetRecord(int index) const
    {
        return m_Records[static_cast<std::size_t>(index)];
    }
    /// Whole and cleaned.
    std::u16string_view GetName(int index) const;

    /// The first entry of that name, `\` taken for `/`, or -1.
    int Find(std::u16string_view name, bool ignoreCase) const;

private:
    std::uint32_t ReadRecords(CZipInput& input, std::uint64_t offset, std::uint64_t size,
                              std::uint64_t begin);
    std::uint32_t AddRecord(std::string_view bytes, std::uint64_t begin);
    std::uint32_t CheckPlaces(std::uint64_t end);

    std::vector<CZipRecord> m_Records;
    std::u16string m_Names;
    mutable CZipNameIndex m_Exact; // each made when first asked
    mutable CZipNameIndex m_Folded;
};

} // namespace utility
