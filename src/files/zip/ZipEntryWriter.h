#pragma once

#include "files/zip/ZipCipher.h"
#include "files/zip/ZipCreate.h"
#include "files/zip/ZipDeflate.h"
#include "files/zip/ZipFormat.h"
#include "files/zip/ZipSource.h"

#include <optional>
#include <string>
#include <vector>

namespace utility
{

/// Packs the content of one entry after the other, and encrypts it.
class CZipEntryWriter : private IZipSink
{
public:
    /// Without a password, "", nothing is encrypted; `limit` is the size from which on an entry
    /// needs a large header.
    CZipEntryWriter(std::string password, std::uint64_t limit);

    bool IsEncrypting() const { return !m_Password.empty(); }
    void SetProgress(CZipProgress progress) { m_Progress = std::move(progress); }

    /// What so many bytes take at most by the method and the flags of a header.
    static std::uint64_t GetBound(const CZipHeader& header, std::uint64_t size);

    /// Packs what the source has to `sink`, and completes the header by CRC and sizes; a result
    /// code.
    std::uint32_t Write(CZipSource& source, CZipHeader& header, IZipSink& sink);

private:
    std::uint32_t BeginCipher();
    std::uint32_t TakePiece(std::string_view piece);
    std::uint32_t Put(std::string_view bytes) override;

    std::string m_Password;
    std::uint64_t m_Limit;
    CZipProgress m_Progress;
    CZipDeflate m_Deflate;
    std::optional<CZipCipher> m_Cipher;
    std::vector<char> m_Encrypted;
    CZipHeader* m_Header = nullptr; // of the entry under way
    IZipSink* m_Sink = nullptr;
};

} // namespace utility
