#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// An entry as a test wants it in the bytes, right or wrong; what is not said is made to fit.
struct CRawEntry
{
    std::string m_Name = "a";
    std::string m_Data = "hello"; // as it lies in the archive
    std::uint16_t m_Method = 0;
    std::uint16_t m_Flags = 0;
    std::optional<std::uint32_t> m_Crc = {};
    std::optional<std::uint32_t> m_PackedSize = {}; // of the directory
    std::optional<std::uint32_t> m_Size = {};
    std::optional<std::uint32_t> m_Offset = {};
    std::uint32_t m_DosTime = 0x58614DAF; // 1 March 2024, 09:45:30
    std::uint16_t m_MadeBy = 20;
    std::uint32_t m_Attributes = 32;
    std::uint16_t m_Disk = 0;
    std::string m_LocalExtra = {};
    std::string m_CentralExtra = {};
    std::optional<std::uint16_t> m_CentralNameLength = {};
    std::optional<std::uint16_t> m_CentralExtraLength = {};
    std::uint32_t m_LocalSignature = 0x04034B50;
    std::uint32_t m_CentralSignature = 0x02014B50;
    std::string m_Behind = {}; // between its data and the next entry
};

/// An archive for a test, likewise.
struct CRawZip
{
    std::vector<CRawEntry> m_Entries = {};
    std::string m_Prefix = {};
    bool m_CountsPrefix = false;  // offsets count from the file's start
    std::string m_BeforeEnd = {}; // behind the directory: Zip64 records
    std::string m_Comment = {};
    std::string m_Behind = {}; // behind the end record
    std::optional<std::uint16_t> m_Count = {};
    std::optional<std::uint16_t> m_CountHere = {}; // in this file of several
    std::uint16_t m_Disk = 0;
    std::optional<std::uint32_t> m_DirectorySize = {};
    std::optional<std::uint32_t> m_DirectoryOffset = {};
    std::optional<std::uint16_t> m_CommentLength = {};
    bool m_HasEnd = true;
};

std::string BuildRawZip(const CRawZip& zip);

/// A number of so many bytes, the lowest first.
std::string RawNumber(std::uint64_t value, int count);

/// An extra field.
std::string RawExtra(std::uint16_t id, std::string_view content);

/// Deflated data that hold the bytes as they are: one stored block, at most 65,535.
std::string RawDeflated(std::string_view bytes);

/// A Zip64 end record and its locator that say so.
std::string RawLargeEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                        std::uint64_t place);

std::uint32_t RawCrc(std::string_view bytes);

} // namespace utility
