#include "support/RawZip.h"

namespace utility
{

namespace
{

std::string LocalHeader(const CRawEntry& entry)
{
    const auto size = static_cast<std::uint32_t>(entry.m_Data.size());
    return RawNumber(entry.m_LocalSignature, 4) + RawNumber(20, 2) + RawNumber(entry.m_Flags, 2) +
           RawNumber(entry.m_Method, 2) + RawNumber(entry.m_DosTime, 4) +
           RawNumber(entry.m_Crc.value_or(RawCrc(entry.m_Data)), 4) +
           RawNumber(entry.m_PackedSize.value_or(size), 4) +
           RawNumber(entry.m_Size.value_or(size), 4) + RawNumber(entry.m_Name.size(), 2) +
           RawNumber(entry.m_LocalExtra.size(), 2) + entry.m_Name + entry.m_LocalExtra;
}

std::string CentralRecord(const CRawEntry& entry, std::uint32_t offset)
{
    const auto size = static_cast<std::uint32_t>(entry.m_Data.size());
    const auto nameLength = static_cast<std::uint16_t>(entry.m_Name.size());
    const auto extraLength = static_cast<std::uint16_t>(entry.m_CentralExtra.size());
    return RawNumber(entry.m_CentralSignature, 4) + RawNumber(entry.m_MadeBy, 2) +
           RawNumber(20, 2) + RawNumber(entry.m_Flags, 2) + RawNumber(entry.m_Method, 2) +
           RawNumber(entry.m_DosTime, 4) +
           RawNumber(entry.m_Crc.value_or(RawCrc(entry.m_Data)), 4) +
           RawNumber(entry.m_PackedSize.value_or(size), 4) +
           RawNumber(entry.m_Size.value_or(size), 4) +
           RawNumber(entry.m_CentralNameLength.value_or(nameLength), 2) +
           RawNumber(entry.m_CentralExtraLength.value_or(extraLength), 2) + RawNumber(0, 2) +
           RawNumber(entry.m_Disk, 2) + RawNumber(0, 2) + RawNumber(entry.m_Attributes, 4) +
           RawNumber(entry.m_Offset.value_or(offset), 4) + entry.m_Name + entry.m_CentralExtra;
}

std::string EndRecord(const CRawZip& zip, std::uint32_t size, std::uint32_t offset)
{
    const auto count = zip.m_Count.value_or(static_cast<std::uint16_t>(zip.m_Entries.size()));
    const auto commentLength = static_cast<std::uint16_t>(zip.m_Comment.size());
    return RawNumber(0x06054B50, 4) + RawNumber(zip.m_Disk, 2) + RawNumber(zip.m_Disk, 2) +
           RawNumber(zip.m_CountHere.value_or(count), 2) + RawNumber(count, 2) +
           RawNumber(zip.m_DirectorySize.value_or(size), 4) +
           RawNumber(zip.m_DirectoryOffset.value_or(offset), 4) +
           RawNumber(zip.m_CommentLength.value_or(commentLength), 2) + zip.m_Comment;
}

} // namespace

std::string RawNumber(std::uint64_t value, int count)
{
    std::string bytes;
    for (; count > 0; --count, value >>= 8U)
        bytes += static_cast<char>(value);
    return bytes;
}

std::string RawExtra(std::uint16_t id, std::string_view content)
{
    return RawNumber(id, 2) + RawNumber(content.size(), 2) + std::string(content);
}

std::string RawDeflated(std::string_view bytes)
{
    return "\x01" + RawNumber(bytes.size(), 2) + RawNumber(~bytes.size(), 2) + std::string(bytes);
}

std::string RawLargeEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                        std::uint64_t place)
{
    return RawNumber(0x06064B50, 4) + RawNumber(44, 8) + RawNumber(45, 2) + RawNumber(45, 2) +
           RawNumber(0, 8) + RawNumber(count, 8) + RawNumber(count, 8) + RawNumber(size, 8) +
           RawNumber(offset, 8) + RawNumber(0x07064B50, 4) + RawNumber(0, 4) + RawNumber(place, 8) +
           RawNumber(1, 4);
}

std::uint32_t RawCrc(std::string_view bytes)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes)
    {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0);
    }
    return ~crc;
}

std::string BuildRawZip(const CRawZip& zip)
{
    std::string bytes = zip.m_Prefix;
    std::string directory;
    const std::size_t start = zip.m_CountsPrefix ? 0 : bytes.size();
    for (const CRawEntry& entry : zip.m_Entries)
    {
        directory += CentralRecord(entry, static_cast<std::uint32_t>(bytes.size() - start));
        bytes += LocalHeader(entry) + entry.m_Data + entry.m_Behind;
    }
    const auto offset = static_cast<std::uint32_t>(bytes.size() - start);
    bytes += directory + zip.m_BeforeEnd;
    if (zip.m_HasEnd)
        bytes += EndRecord(zip, static_cast<std::uint32_t>(directory.size()), offset);
    return bytes + zip.m_Behind;
}

} // namespace utility
