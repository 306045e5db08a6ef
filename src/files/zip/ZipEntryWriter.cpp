#include "files/zip/ZipEntryWriter.h"

#include "files/zip/ZipResult.h"
#include "platform/system/Random.h"

#include <zlib.h>

namespace utility
{

namespace
{

std::uint32_t UpdateCrc(std::uint32_t crc, std::string_view bytes)
{
    return static_cast<std::uint32_t>(
        crc32_z(crc, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

} // namespace

CZipEntryWriter::CZipEntryWriter(std::string password, std::uint64_t limit)
    : m_Password(std::move(password)),
      m_Limit(limit)
{
}

std::uint64_t CZipEntryWriter::GetBound(const CZipHeader& header, std::uint64_t size)
{
    const std::uint64_t bound =
        header.m_Method == ZIP_DEFLATED ? CZipDeflate::GetBound(size) : size;
    return (header.m_Flags & ZIP_FLAG_ENCRYPTED) != 0 ? bound + CZipCipher::HEADER_SIZE : bound;
}

std::uint32_t CZipEntryWriter::Write(CZipSource& source, CZipHeader& header, IZipSink& sink)
{
    m_Header = &header;
    m_Sink = &sink;
    m_Cipher.reset();
    const bool isDeflated = header.m_Method == ZIP_DEFLATED;
    if (isDeflated && !m_Deflate.Begin())
        return ZIP_NO_MEMORY;
    if ((header.m_Flags & ZIP_FLAG_ENCRYPTED) != 0)
    {
        if (const std::uint32_t code = BeginCipher(); code != ZIP_SUCCESS)
            return code;
    }
    for (std::string_view piece;;)
    {
        if (const std::uint32_t code = source.Next(piece); code != ZIP_SUCCESS)
            return code;
        if (const std::uint32_t code = TakePiece(piece); code != ZIP_SUCCESS)
            return code;
        const std::uint32_t code =
            isDeflated ? m_Deflate.Pack(piece, piece.empty(), *this) : Put(piece);
        if (code != ZIP_SUCCESS || piece.empty())
            return code;
    }
}

std::uint32_t CZipEntryWriter::BeginCipher()
{
    char header[CZipCipher::HEADER_SIZE];
    FillRandom(header, sizeof header);
    // The CRC is not known yet, so the time is what tells a wrong password.
    header[sizeof header - 1] = static_cast<char>(m_Header->m_DosTime >> 8U);
    m_Cipher.emplace(m_Password);
    return Put(std::string_view(header, sizeof header));
}

/// What is to be known of a piece before it is packed.
std::uint32_t CZipEntryWriter::TakePiece(std::string_view piece)
{
    m_Header->m_Crc = UpdateCrc(m_Header->m_Crc, piece);
    m_Header->m_Size += piece.size();
    if (m_Progress && !m_Progress(piece.size()))
        return ZIP_WRITE_FAILED;
    // Where no size was told, the header has no room for one beyond the limit.
    return m_Header->m_IsLarge || m_Header->m_Size < m_Limit ? ZIP_SUCCESS : ZIP_WRITE_FAILED;
}

/// Packed bytes on their way out.
std::uint32_t CZipEntryWriter::Put(std::string_view bytes)
{
    m_Header->m_PackedSize += bytes.size();
    if (!m_Header->m_IsLarge && m_Header->m_PackedSize >= m_Limit)
        return ZIP_WRITE_FAILED;
    if (m_Cipher)
    {
        m_Encrypted.assign(bytes.begin(), bytes.end());
        m_Cipher->Encrypt(m_Encrypted.data(), m_Encrypted.size());
        bytes = {m_Encrypted.data(), m_Encrypted.size()};
    }
    return bytes.empty() ? ZIP_SUCCESS : m_Sink->Put(bytes);
}

} // namespace utility
