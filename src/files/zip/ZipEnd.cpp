#include "files/zip/ZipEnd.h"

#include "files/zip/ZipFault.h"
#include "files/zip/ZipFormat.h"
#include "files/zip/ZipResult.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace utility
{

namespace
{

/// The end of the file, where the end record must lie.
struct CTail
{
    std::string m_Bytes;
    std::uint64_t m_Offset = 0;
};

bool ReadTail(CZipInput& input, CTail& tail)
{
    constexpr std::uint64_t SIZE = ZIP_END_SIZE + ZIP_COMMENT_LIMIT;
    tail.m_Bytes.resize(static_cast<std::size_t>(std::min(input.GetSize(), SIZE)));
    tail.m_Offset = input.GetSize() - tail.m_Bytes.size();
    return input.ReadAt(tail.m_Offset, tail.m_Bytes.data(), tail.m_Bytes.size());
}

/// Reads the Zip64 end record in front of its locator, which stands in front of the end record.
std::uint32_t ReadLargeEnd(CZipInput& input, std::uint64_t endPlace, CZipEnd& end,
                           std::uint64_t& directoryEnd)
{
    char locator[ZIP_LOCATOR_SIZE];
    char record[ZIP_LARGE_END_SIZE];
    if (endPlace < ZIP_LOCATOR_SIZE + ZIP_LARGE_END_SIZE ||
        !input.ReadAt(endPlace - ZIP_LOCATOR_SIZE, locator, sizeof locator) ||
        ZipDouble(locator) != ZIP_LOCATOR_SIGNATURE)
        return FailOnZip(EZipFault::LargeDamaged);
    if (ZipDouble(locator + 4) != 0 || ZipDouble(locator + 16) > 1)
        return FailOnZip(EZipFault::Split);

    // Behind a prefix the place told is too low; the record then stands right before its locator.
    std::uint64_t place = ZipQuad(locator + 8);
    const auto readAt = [&](std::uint64_t offset)
    {
        return offset <= endPlace - ZIP_LOCATOR_SIZE - ZIP_LARGE_END_SIZE &&
               input.ReadAt(offset, record, sizeof record) &&
               ZipDouble(record) == ZIP_LARGE_END_SIGNATURE;
    };
    if (!readAt(place) && !readAt(place = endPlace - ZIP_LOCATOR_SIZE - ZIP_LARGE_END_SIZE))
        return FailOnZip(EZipFault::LargeDamaged);
    if (ZipDouble(record + 16) != 0 || ZipDouble(record + 20) != 0 ||
        ZipQuad(record + 24) != ZipQuad(record + 32))
        return FailOnZip(EZipFault::Split);
    end.m_Count = ZipQuad(record + 32);
    end.m_Size = ZipQuad(record + 40);
    end.m_Offset = ZipQuad(record + 48);
    directoryEnd = place;
    return ZIP_SUCCESS;
}

/// What an end record and its Zip64 kin say; offsets count from the archive's begin until its last
/// lines.
std::uint32_t ReadEnd(CZipInput& input, const char* record, std::uint64_t place, CZipEnd& end)
{
    end.m_Count = ZipWord(record + 10);
    end.m_Size = ZipDouble(record + 12);
    end.m_Offset = ZipDouble(record + 16);
    std::uint64_t directoryEnd = place;
    const bool isLarge = end.m_Count == ZIP_IN_LARGE_16 || end.m_Size == ZIP_IN_LARGE_32 ||
                         end.m_Offset == ZIP_IN_LARGE_32;
    const auto isHere = [](std::uint16_t disk)
    {
        return disk == 0 || disk == ZIP_IN_LARGE_16;
    };
    if (!isHere(ZipWord(record + 4)) || !isHere(ZipWord(record + 6)) ||
        ZipWord(record + 8) != ZipWord(record + 10))
        return FailOnZip(EZipFault::Split);
    if (isLarge)
    {
        const std::uint32_t code = ReadLargeEnd(input, place, end, directoryEnd);
        const bool hasNoRoom = end.m_Size == ZIP_IN_LARGE_32 || end.m_Offset == ZIP_IN_LARGE_32;
        if (code != ZIP_SUCCESS && (hasNoRoom || GetZipFault() != EZipFault::LargeDamaged))
            return code; // 65,535 entries may be just that
    }
    if (end.m_Size > directoryEnd || end.m_Offset > directoryEnd - end.m_Size)
        return FailOnZip(EZipFault::DirectoryOutside);
    end.m_Begin = directoryEnd - end.m_Size - end.m_Offset;
    end.m_Offset += end.m_Begin;
    return ZIP_SUCCESS;
}

bool IsEndRecord(std::string_view bytes)
{
    return bytes.size() >= ZIP_END_SIZE && bytes.front() == 'P' &&
           ZipDouble(bytes.data()) == ZIP_END_SIGNATURE &&
           ZipWord(bytes.data() + 20) <= bytes.size() - ZIP_END_SIZE;
}

/// Whether a directory begins where the record says: a comment may hold what looks like a record.
bool HasDirectory(CZipInput& input, const CZipEnd& end)
{
    char signature[4];
    return end.m_Size == 0 || (end.m_Size >= sizeof signature &&
                               input.ReadAt(end.m_Offset, signature, sizeof signature) &&
                               ZipDouble(signature) == ZIP_CENTRAL_SIGNATURE);
}

} // namespace

std::uint32_t FindZipEnd(CZipInput& input, CZipEnd& end)
{
    CTail tail;
    if (!ReadTail(input, tail))
        return ZIP_READ_FAILED;

    std::optional<CZipEnd> empty; // of a program in front of nothing, or of a comment
    std::uint32_t firstCode = FailOnZip(EZipFault::NoEnd);
    EZipFault firstFault = EZipFault::NoEnd;
    for (std::size_t place = tail.m_Bytes.size(); place-- > 0;)
    {
        if (!IsEndRecord(std::string_view(tail.m_Bytes).substr(place)))
            continue;
        CZipEnd found;
        std::uint32_t code =
            ReadEnd(input, tail.m_Bytes.data() + place, tail.m_Offset + place, found);
        if (code == ZIP_SUCCESS && !HasDirectory(input, found))
            code = FailOnZip(EZipFault::DirectoryOutside);
        if (code == ZIP_SUCCESS && (found.m_Size > 0 || found.m_Begin == 0))
        {
            end = found;
            return code;
        }
        if (code == ZIP_SUCCESS)
            empty = empty.value_or(found);
        else if (firstFault == EZipFault::NoEnd) // the last record of the file is the likeliest
        {
            firstCode = code;
            firstFault = GetZipFault();
        }
    }
    if (empty)
    {
        end = *empty;
        return ZIP_SUCCESS;
    }
    if (firstCode == ZIP_CORRUPT)
        FailOnZip(firstFault);
    return firstCode;
}

} // namespace utility
