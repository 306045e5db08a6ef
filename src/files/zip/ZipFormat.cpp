#include "files/zip/ZipFormat.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::uint16_t VERSION_MADE_BY = 0x0B17;
constexpr std::uint16_t VERSION_NEEDED = 20;
constexpr std::uint16_t LARGE_VERSION_NEEDED = 45;

constexpr std::uint16_t LARGE_EXTRA = 0x0001;
constexpr std::uint16_t TIMES_EXTRA = 0x5455; // "UT"
constexpr unsigned HAS_MODIFIED = 1;
constexpr unsigned HAS_ACCESSED = 2;
constexpr unsigned HAS_CREATED = 4;
constexpr char ALL_TIMES = HAS_MODIFIED | HAS_ACCESSED | HAS_CREATED;

/// Puts numbers behind each other.
class CRecord
{
public:
    CRecord& Word(std::uint64_t value) { return Put(value, 2); }
    CRecord& Double(std::uint64_t value) { return Put(value, 4); }
    CRecord& Quad(std::uint64_t value) { return Put(value, 8); }
    CRecord& Bytes(std::string_view bytes)
    {
        m_Bytes += bytes;
        return *this;
    }
    std::string Take() { return std::move(m_Bytes); }

private:
    CRecord& Put(std::uint64_t value, int count)
    {
        for (; count > 0; --count, value >>= 8U)
            m_Bytes += static_cast<char>(value);
        return *this;
    }

    std::string m_Bytes;
};

std::uint64_t Number(const char* bytes, unsigned count)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < count; ++i)
        value |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << 8U * i;
    return value;
}

std::uint64_t ShortField(std::uint64_t value, std::uint64_t limit)
{
    return value >= limit ? ZIP_IN_LARGE_32 : value;
}

/// The field of a record for the numbers that have no room in it; empty if all have.
std::string LargeExtra(const CZipHeader& header, const CZipLimits& limits)
{
    CRecord numbers;
    for (const std::uint64_t value : {header.m_Size, header.m_PackedSize, header.m_Offset})
    {
        if (value >= limits.m_Size)
            numbers.Quad(value);
    }
    const std::string content = numbers.Take();
    if (content.empty())
        return content;
    return CRecord().Word(LARGE_EXTRA).Word(content.size()).Bytes(content).Take();
}

bool NeedsLargeEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                   const CZipLimits& limits)
{
    return count >= limits.m_Count || size >= limits.m_Size || offset >= limits.m_Size;
}

CZipUnixTimes ReadTimes(std::string_view content)
{
    CZipUnixTimes times;
    if (content.empty())
        return times;
    const auto flags = static_cast<unsigned char>(content.front());
    content.remove_prefix(1);
    const auto take = [&](unsigned flag, std::optional<std::int32_t>& time)
    {
        if ((flags & flag) == 0 || content.size() < 4)
            return;
        time = static_cast<std::int32_t>(ZipDouble(content.data()));
        content.remove_prefix(4);
    };
    take(HAS_MODIFIED, times.m_Modified);
    take(HAS_ACCESSED, times.m_Accessed);
    take(HAS_CREATED, times.m_Created);
    return times;
}

} // namespace

std::uint16_t ZipWord(const char* bytes)
{
    return static_cast<std::uint16_t>(Number(bytes, 2));
}

std::uint32_t ZipDouble(const char* bytes)
{
    return static_cast<std::uint32_t>(Number(bytes, 4));
}

std::uint64_t ZipQuad(const char* bytes)
{
    return Number(bytes, 8);
}

std::string MakeZipLocalHeader(const CZipHeader& header)
{
    CRecord extra;
    if (header.m_IsLarge) // both sizes, which the descriptor then has in 64 bits
        extra.Word(LARGE_EXTRA).Word(16).Quad(0).Quad(0);
    extra.Word(TIMES_EXTRA).Word(13).Bytes(std::string_view(&ALL_TIMES, 1));
    for (const std::int32_t time : {header.m_Modified, header.m_Accessed, header.m_Created})
        extra.Double(static_cast<std::uint32_t>(time));
    const std::string fields = extra.Take();

    const std::uint32_t size = header.m_IsLarge ? ZIP_IN_LARGE_32 : 0;
    return CRecord()
        .Double(ZIP_LOCAL_SIGNATURE)
        .Word(header.m_IsLarge ? LARGE_VERSION_NEEDED : VERSION_NEEDED)
        .Word(header.m_Flags)
        .Word(header.m_Method)
        .Double(header.m_DosTime)
        .Double(0) // the CRC stands in the descriptor
        .Double(size)
        .Double(size)
        .Word(header.m_Name.size())
        .Word(fields.size())
        .Bytes(header.m_Name)
        .Bytes(fields)
        .Take();
}

std::string MakeZipDescriptor(const CZipHeader& header)
{
    CRecord record;
    record.Double(ZIP_DESCRIPTOR_SIGNATURE).Double(header.m_Crc);
    if (header.m_IsLarge)
        record.Quad(header.m_PackedSize).Quad(header.m_Size);
    else
        record.Double(header.m_PackedSize).Double(header.m_Size);
    return record.Take();
}

std::string MakeZipCentralRecord(const CZipHeader& header, const CZipLimits& limits)
{
    const std::string large = LargeExtra(header, limits);
    const bool isLarge = header.m_IsLarge || !large.empty();
    const std::string extra = CRecord()
                                  .Bytes(large)
                                  .Word(TIMES_EXTRA)
                                  .Word(5)
                                  .Bytes(std::string_view(&ALL_TIMES, 1))
                                  .Double(static_cast<std::uint32_t>(header.m_Modified))
                                  .Take();
    return CRecord()
        .Double(ZIP_CENTRAL_SIGNATURE)
        .Word(VERSION_MADE_BY)
        .Word(isLarge ? LARGE_VERSION_NEEDED : VERSION_NEEDED)
        .Word(header.m_Flags)
        .Word(header.m_Method)
        .Double(header.m_DosTime)
        .Double(header.m_Crc)
        .Double(ShortField(header.m_PackedSize, limits.m_Size))
        .Double(ShortField(header.m_Size, limits.m_Size))
        .Word(header.m_Name.size())
        .Word(extra.size())
        .Word(0) // comment
        .Word(0) // disk
        .Word(0) // internal attributes
        .Double(header.m_Attributes)
        .Double(ShortField(header.m_Offset, limits.m_Size))
        .Bytes(header.m_Name)
        .Bytes(extra)
        .Take();
}

std::string MakeZipEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                       const CZipLimits& limits)
{
    CRecord record;
    if (NeedsLargeEnd(count, size, offset, limits))
    {
        record.Double(ZIP_LARGE_END_SIGNATURE)
            .Quad(ZIP_LARGE_END_SIZE - 12) // what follows this field
            .Word(VERSION_MADE_BY)
            .Word(LARGE_VERSION_NEEDED)
            .Double(0) // disk, and that of the directory
            .Double(0)
            .Quad(count)
            .Quad(count)
            .Quad(size)
            .Quad(offset);
        record.Double(ZIP_LOCATOR_SIGNATURE).Double(0).Quad(offset + size).Double(1);
    }
    const std::uint64_t shortCount = count >= limits.m_Count ? ZIP_IN_LARGE_16 : count;
    return record.Double(ZIP_END_SIGNATURE)
        .Double(0) // both disks
        .Word(shortCount)
        .Word(shortCount)
        .Double(ShortField(size, limits.m_Size))
        .Double(ShortField(offset, limits.m_Size))
        .Word(0) // comment
        .Take();
}

std::size_t GetZipEndSize(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                          const CZipLimits& limits)
{
    return NeedsLargeEnd(count, size, offset, limits)
               ? ZIP_LARGE_END_SIZE + ZIP_LOCATOR_SIZE + ZIP_END_SIZE
               : ZIP_END_SIZE;
}

CZipExtras ReadZipExtras(std::string_view extra)
{
    CZipExtras extras;
    while (extra.size() >= 4)
    {
        const std::uint16_t id = ZipWord(extra.data());
        const std::size_t size = ZipWord(extra.data() + 2);
        extra.remove_prefix(4);
        if (size > extra.size())
            break;
        if (id == LARGE_EXTRA)
            extras.m_Large = extra.substr(0, size);
        else if (id == TIMES_EXTRA)
            extras.m_Times = ReadTimes(extra.substr(0, size));
        extra.remove_prefix(size);
    }
    return extras;
}

} // namespace utility
