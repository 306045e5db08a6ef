#include "files/zip/ZipDirectory.h"

#include "files/zip/ZipEnd.h"
#include "files/zip/ZipFault.h"
#include "files/zip/ZipFormat.h"
#include "files/zip/ZipNames.h"
#include "files/zip/ZipResult.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace utility
{

namespace
{

constexpr std::size_t BUFFER_SIZE = std::size_t{1} << 20U; // some times the longest record
constexpr std::uint64_t RESERVE_LIMIT = 1U << 20U;         // records for which a claim is enough

/// The next of the numbers in a Zip64 field, for a short field that says it is there.
bool TakeLarge(std::string_view& large, std::uint64_t& value)
{
    if (value != ZIP_IN_LARGE_32)
        return true;
    if (large.size() < 8)
        return false;
    value = ZipQuad(large.data());
    large.remove_prefix(8);
    return true;
}

std::size_t RecordSize(const char* bytes)
{
    return ZIP_CENTRAL_SIZE + ZipWord(bytes + 28) + ZipWord(bytes + 30) + ZipWord(bytes + 32);
}

} // namespace

std::uint32_t CZipDirectory::Read(CZipInput& input)
{
    *this = CZipDirectory();
    CZipEnd end;
    if (const std::uint32_t code = FindZipEnd(input, end); code != ZIP_SUCCESS)
        return code;
    m_Records.reserve(std::min({end.m_Count, end.m_Size / ZIP_CENTRAL_SIZE, RESERVE_LIMIT}));
    if (const std::uint32_t code = ReadRecords(input, end.m_Offset, end.m_Size, end.m_Begin);
        code != ZIP_SUCCESS)
        return code;
    if (m_Records.size() != end.m_Count)
        return FailOnZip(EZipFault::CountWrong);
    return CheckPlaces(end.m_Offset);
}

/// Goes through the directory in pieces, each of which begins with a record.
std::uint32_t CZipDirectory::ReadRecords(CZipInput& input, std::uint64_t offset, std::uint64_t size,
                                         std::uint64_t begin)
{
    std::string buffer;
    while (size > 0)
    {
        buffer.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, BUFFER_SIZE)));
        if (!input.ReadAt(offset, buffer.data(), buffer.size()))
            return ZIP_READ_FAILED;

        std::string_view rest(buffer);
        while (rest.size() >= ZIP_CENTRAL_SIZE && ZipDouble(rest.data()) == ZIP_CENTRAL_SIGNATURE &&
               RecordSize(rest.data()) <= rest.size())
        {
            const std::size_t length = RecordSize(rest.data());
            if (const std::uint32_t code = AddRecord(rest.substr(0, length), begin);
                code != ZIP_SUCCESS)
                return code;
            rest.remove_prefix(length);
        }
        const std::size_t done = buffer.size() - rest.size();
        if (done == 0)
        {
            const bool isSeal = size >= 4 && ZipDouble(rest.data()) == ZIP_SEAL_SIGNATURE;
            return isSeal ? ZIP_SUCCESS : FailOnZip(EZipFault::DirectoryCut);
        }
        offset += done;
        size -= done;
    }
    return ZIP_SUCCESS;
}

std::uint32_t CZipDirectory::AddRecord(std::string_view bytes, std::uint64_t begin)
{
    const std::size_t nameLength = ZipWord(bytes.data() + 28);
    const std::size_t extraLength = ZipWord(bytes.data() + 30);
    const CZipExtras extras =
        ReadZipExtras(bytes.substr(ZIP_CENTRAL_SIZE + nameLength, extraLength));
    if (ZipWord(bytes.data() + 34) != 0 && ZipWord(bytes.data() + 34) != ZIP_IN_LARGE_16)
        return FailOnZip(EZipFault::Split);

    CZipRecord record;
    record.m_Host = static_cast<unsigned char>(bytes[5]);
    record.m_Flags = ZipWord(bytes.data() + 8);
    record.m_Method = ZipWord(bytes.data() + 10);
    record.m_DosTime = ZipDouble(bytes.data() + 12);
    record.m_Crc = ZipDouble(bytes.data() + 16);
    record.m_PackedSize = ZipDouble(bytes.data() + 20);
    record.m_Size = ZipDouble(bytes.data() + 24);
    record.m_Attributes = ZipDouble(bytes.data() + 38);
    record.m_Offset = ZipDouble(bytes.data() + 42);
    record.m_Modified = extras.m_Times.m_Modified;
    std::string_view large = extras.m_Large;
    if (!TakeLarge(large, record.m_Size) || !TakeLarge(large, record.m_PackedSize) ||
        !TakeLarge(large, record.m_Offset))
        return FailOnZip(EZipFault::LargeDamaged);
    if (record.m_Offset > std::numeric_limits<std::uint64_t>::max() - begin ||
        m_Records.size() >= std::numeric_limits<int>::max())
        return FailOnZip(EZipFault::EntryOutside);
    record.m_Offset += begin;

    const std::u16string whole = DecodeZipName(bytes.substr(ZIP_CENTRAL_SIZE, nameLength));
    const std::u16string_view name = CleanZipName(whole);
    record.m_NameStart = m_Names.size();
    record.m_NameLength = static_cast<std::uint32_t>(name.size());
    m_Names += name;
    m_Records.push_back(record);
    return ZIP_SUCCESS;
}

/// Gives each entry the place where the next one begins, and refuses those that reach beyond it.
std::uint32_t CZipDirectory::CheckPlaces(std::uint64_t end)
{
    std::vector<std::uint32_t> order(m_Records.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto offsetOf = [this](std::uint32_t index)
    {
        return m_Records[index].m_Offset;
    };
    if (!std::ranges::is_sorted(order, {}, offsetOf))
        std::ranges::sort(order, {}, offsetOf);

    for (auto each = order.rbegin(); each != order.rend(); ++each)
    {
        CZipRecord& record = m_Records[*each];
        const EZipFault fault =
            each == order.rbegin() ? EZipFault::EntryOutside : EZipFault::Overlap;
        if (record.m_Offset > end || end - record.m_Offset < ZIP_LOCAL_SIZE ||
            end - record.m_Offset - ZIP_LOCAL_SIZE < record.m_PackedSize)
            return FailOnZip(fault);
        record.m_Limit = end;
        end = record.m_Offset;
    }
    return ZIP_SUCCESS;
}

std::u16string_view CZipDirectory::GetName(int index) const
{
    const CZipRecord& record = GetRecord(index);
    return std::u16string_view(m_Names).substr(record.m_NameStart, record.m_NameLength);
}

int CZipDirectory::Find(std::u16string_view name, bool ignoreCase) const
{
    const auto nameOf = [this](int index)
    {
        return GetName(index);
    };
    CZipNameIndex& names = ignoreCase ? m_Folded : m_Exact;
    if (!names.IsMade())
    {
        names.Begin(m_Records.size(), ignoreCase);
        for (int index = 0; index < GetCount(); ++index)
            names.Add(index, nameOf);
    }
    return names.Find(name, nameOf);
}

} // namespace utility
