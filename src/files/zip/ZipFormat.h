#pragma once

#include "files/zip/ZipTimes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace utility
{

/// The records of the container, as its maker's APPNOTE lays them down. Numbers are little-endian.

// Signatures
constexpr std::uint32_t ZIP_LOCAL_SIGNATURE = 0x04034B50;
constexpr std::uint32_t ZIP_DESCRIPTOR_SIGNATURE = 0x08074B50;
constexpr std::uint32_t ZIP_CENTRAL_SIGNATURE = 0x02014B50;
constexpr std::uint32_t ZIP_SEAL_SIGNATURE =
    0x05054B50; // of a signed directory, behind its records
constexpr std::uint32_t ZIP_END_SIGNATURE = 0x06054B50;
constexpr std::uint32_t ZIP_LARGE_END_SIGNATURE = 0x06064B50;
constexpr std::uint32_t ZIP_LOCATOR_SIGNATURE = 0x07064B50;

// Sizes of records without what varies
constexpr std::size_t ZIP_LOCAL_SIZE = 30;
constexpr std::size_t ZIP_CENTRAL_SIZE = 46;
constexpr std::size_t ZIP_END_SIZE = 22;
constexpr std::size_t ZIP_LARGE_END_SIZE = 56;
constexpr std::size_t ZIP_LOCATOR_SIZE = 20;
constexpr std::size_t ZIP_COMMENT_LIMIT = 0xFFFF;

// What a short field holds if the number stands in a Zip64 record
constexpr std::uint32_t ZIP_IN_LARGE_32 = 0xFFFFFFFF;
constexpr std::uint16_t ZIP_IN_LARGE_16 = 0xFFFF;

// General purpose flags
constexpr std::uint16_t ZIP_FLAG_ENCRYPTED = 0x0001;
constexpr std::uint16_t ZIP_FLAG_DESCRIPTOR = 0x0008;
constexpr std::uint16_t ZIP_FLAG_PATCH = 0x0020;
constexpr std::uint16_t ZIP_FLAG_STRONG = 0x0040;
constexpr std::uint16_t ZIP_FLAG_MASKED = 0x2000; // an encrypted directory

// Methods
constexpr std::uint16_t ZIP_STORED = 0;
constexpr std::uint16_t ZIP_DEFLATED = 8;
constexpr std::uint16_t ZIP_AES = 99; // the true method stands in an extra field

std::uint16_t ZipWord(const char* bytes);
std::uint32_t ZipDouble(const char* bytes);
std::uint64_t ZipQuad(const char* bytes);

/// Sizes from which on a number goes to a Zip64 record. Tests set smaller ones.
struct CZipLimits
{
    std::uint64_t m_Size = ZIP_IN_LARGE_32;
    std::uint64_t m_Count = ZIP_IN_LARGE_16;
};

/// An entry as its headers tell it.
struct CZipHeader
{
    std::string m_Name;
    std::uint16_t m_Flags = ZIP_FLAG_DESCRIPTOR;
    std::uint16_t m_Method = ZIP_DEFLATED;
    std::uint32_t m_DosTime = 0;
    std::int32_t m_Modified = 0; // seconds since 1970, as the next two
    std::int32_t m_Accessed = 0;
    std::int32_t m_Created = 0;
    std::uint32_t m_Attributes = 0;
    std::uint32_t m_Crc = 0;
    std::uint64_t m_PackedSize = 0;
    std::uint64_t m_Size = 0;
    std::uint64_t m_Offset = 0; // of the local header, from the archive's start
    bool m_IsLarge = false;     // its sizes may pass the limits
};

// What is written
std::string MakeZipLocalHeader(const CZipHeader& header);
std::string MakeZipDescriptor(const CZipHeader& header);
std::string MakeZipCentralRecord(const CZipHeader& header, const CZipLimits& limits);
/// What ends an archive whose directory has so many records and bytes, at that offset; and its
/// size.
std::string MakeZipEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                       const CZipLimits& limits);
std::size_t GetZipEndSize(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                          const CZipLimits& limits);

/// What the extra fields of a header tell; a broken one is as none.
struct CZipExtras
{
    std::string_view m_Large; // the content of the Zip64 field
    CZipUnixTimes m_Times;
};
CZipExtras ReadZipExtras(std::string_view extra);

} // namespace utility
