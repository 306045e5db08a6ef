#include "files/zip/ZipEntryReader.h"

#include "files/zip/ZipFault.h"
#include "files/zip/ZipFormat.h"
#include "files/zip/ZipResult.h"

#include <zlib.h>

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t BUFFER_SIZE = 64 * 1024;
constexpr std::uint16_t UNKNOWN_ENCRYPTION = ZIP_FLAG_STRONG | ZIP_FLAG_MASKED;

bool ReadLocalHeader(CZipInput& input, const CZipRecord& record, char (&header)[ZIP_LOCAL_SIZE])
{
    return input.ReadAt(record.m_Offset, header, sizeof header) &&
           ZipDouble(header) == ZIP_LOCAL_SIGNATURE;
}

std::uint32_t UpdateCrc(std::uint32_t crc, const char* bytes, std::size_t count)
{
    return static_cast<std::uint32_t>(crc32_z(crc, reinterpret_cast<const Bytef*>(bytes), count));
}

} // namespace

std::optional<std::uint64_t> FindZipData(CZipInput& input, const CZipRecord& record)
{
    char header[ZIP_LOCAL_SIZE];
    if (!ReadLocalHeader(input, record, header))
        return std::nullopt;
    return record.m_Offset + ZIP_LOCAL_SIZE + ZipWord(header + 26) + ZipWord(header + 28);
}

CZipTimes ReadZipTimes(CZipInput& input, const CZipRecord& record)
{
    CZipUnixTimes central;
    central.m_Modified = record.m_Modified;
    CZipUnixTimes local;
    char header[ZIP_LOCAL_SIZE];
    if (ReadLocalHeader(input, record, header))
    {
        std::string extra(ZipWord(header + 28), 0);
        const std::uint64_t place = record.m_Offset + ZIP_LOCAL_SIZE + ZipWord(header + 26);
        // Not beyond the entry's own bytes: all entries together cost no more than the file.
        if (place + extra.size() <= record.m_Limit &&
            input.ReadAt(place, extra.data(), extra.size()))
            local = ReadZipExtras(extra).m_Times;
    }
    return ChooseZipTimes(local, central, record.m_DosTime);
}

std::uint32_t CZipEntryReader::Begin(const CZipRecord& record, std::string_view password)
{
    const bool isEncrypted = (record.m_Flags & ZIP_FLAG_ENCRYPTED) != 0;
    if (record.m_Method == ZIP_AES || (isEncrypted && (record.m_Flags & UNKNOWN_ENCRYPTION) != 0))
        return FailOnZip(EZipFault::Encryption);
    if ((record.m_Method != ZIP_STORED && record.m_Method != ZIP_DEFLATED) ||
        (record.m_Flags & ZIP_FLAG_PATCH) != 0)
        return FailOnZip(EZipFault::Method);
    if (const std::uint32_t code = BeginData(record); code != ZIP_SUCCESS)
        return code;
    if (const std::uint32_t code = isEncrypted ? BeginCipher(password) : ZIP_SUCCESS;
        code != ZIP_SUCCESS)
        return code;
    if (record.m_Method == ZIP_STORED)
        return m_PackedLeft == m_Left ? ZIP_SUCCESS : FailOnZip(EZipFault::WrongSize);
    return m_Inflate.Begin() ? ZIP_SUCCESS : ZIP_NO_MEMORY;
}

std::uint32_t CZipEntryReader::BeginData(const CZipRecord& record)
{
    const std::optional<std::uint64_t> place = FindZipData(m_Input, record);
    if (!place)
        return FailOnZip(EZipFault::NoLocalHeader);
    if (*place > record.m_Limit || record.m_Limit - *place < record.m_PackedSize)
        return FailOnZip(EZipFault::Overlap);

    m_Record = record;
    m_Offset = *place;
    m_PackedLeft = record.m_PackedSize;
    m_Left = record.m_Size;
    m_Crc = 0;
    m_HasEnded = record.m_Method == ZIP_STORED;
    m_Cipher.reset();
    m_Packed = {};
    return ZIP_SUCCESS;
}

std::uint32_t CZipEntryReader::BeginCipher(std::string_view password)
{
    char header[CZipCipher::HEADER_SIZE];
    if (m_PackedLeft < sizeof header)
        return FailOnZip(EZipFault::DataCut);
    if (!m_Input.ReadAt(m_Offset, header, sizeof header))
        return ZIP_READ_FAILED;
    if (password.empty())
        return ZIP_PASSWORD;
    m_Cipher.emplace(password);
    m_Cipher->Decrypt(header, sizeof header);
    m_Offset += sizeof header;
    m_PackedLeft -= sizeof header;
    // The CRC is not known yet to who writes sizes behind the data; he takes the time instead.
    const std::uint32_t check = (m_Record.m_Flags & ZIP_FLAG_DESCRIPTOR) != 0
                                    ? m_Record.m_DosTime >> 8U
                                    : m_Record.m_Crc >> 24U;
    const auto last = static_cast<unsigned char>(header[sizeof header - 1]);
    return last == (check & 0xFFU) ? ZIP_SUCCESS : ZIP_PASSWORD;
}

std::uint32_t CZipEntryReader::Read(char* bytes, std::size_t count, std::size_t& done)
{
    done = 0;
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count, m_Left));
    const std::uint32_t code = m_Record.m_Method == ZIP_STORED ? ReadStored(bytes, wanted, done)
                                                               : ReadDeflated(bytes, wanted, done);
    if (code != ZIP_SUCCESS)
        return code;
    m_Crc = UpdateCrc(m_Crc, bytes, done);
    m_Left -= done;
    return m_Left > 0 ? ZIP_MORE : CheckEnd();
}

std::uint32_t CZipEntryReader::ReadStored(char* bytes, std::size_t count, std::size_t& done)
{
    if (!m_Input.ReadAt(m_Offset, bytes, count))
        return ZIP_READ_FAILED;
    if (m_Cipher)
        m_Cipher->Decrypt(bytes, count);
    m_Offset += count;
    m_PackedLeft -= count;
    done = count;
    return ZIP_SUCCESS;
}

std::uint32_t CZipEntryReader::ReadDeflated(char* bytes, std::size_t count, std::size_t& done)
{
    while (done < count)
    {
        if (m_HasEnded)
            return FailOnZip(EZipFault::WrongSize);
        if (const std::uint32_t code = m_Packed.empty() ? Refill() : ZIP_SUCCESS;
            code != ZIP_SUCCESS)
            return code;
        std::size_t piece = 0;
        const CZipInflate::EStep step = m_Inflate.Step(m_Packed, bytes + done, count - done, piece);
        if (step == CZipInflate::EStep::Damaged)
            return FailOnZip(EZipFault::Data);
        done += piece;
        m_HasEnded = step == CZipInflate::EStep::Ended;
    }
    return ZIP_SUCCESS;
}

std::uint32_t CZipEntryReader::Refill()
{
    if (m_PackedLeft == 0)
        return FailOnZip(EZipFault::DataCut);
    m_Buffer.resize(BUFFER_SIZE);
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(BUFFER_SIZE, m_PackedLeft));
    if (!m_Input.ReadAt(m_Offset, m_Buffer.data(), count))
        return ZIP_READ_FAILED;
    if (m_Cipher)
        m_Cipher->Decrypt(m_Buffer.data(), count);
    m_Offset += count;
    m_PackedLeft -= count;
    m_Packed = std::string_view(m_Buffer.data(), count);
    return ZIP_SUCCESS;
}

/// All bytes are out: the packed data must end here too.
std::uint32_t CZipEntryReader::CheckEnd()
{
    while (!m_HasEnded)
    {
        if (const std::uint32_t code = m_Packed.empty() ? Refill() : ZIP_SUCCESS;
            code != ZIP_SUCCESS)
            return code;
        char surplus = 0;
        std::size_t piece = 0;
        const CZipInflate::EStep step = m_Inflate.Step(m_Packed, &surplus, 1, piece);
        if (step == CZipInflate::EStep::Damaged)
            return FailOnZip(EZipFault::Data);
        if (piece > 0)
            return FailOnZip(EZipFault::WrongSize);
        m_HasEnded = step == CZipInflate::EStep::Ended;
    }
    if (m_PackedLeft > 0 || !m_Packed.empty())
        return FailOnZip(EZipFault::WrongSize);
    return m_Crc == m_Record.m_Crc ? ZIP_SUCCESS : FailOnZip(EZipFault::WrongCrc);
}

} // namespace utility
