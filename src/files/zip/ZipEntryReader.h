#pragma once

#include "files/zip/ZipCipher.h"
#include "files/zip/ZipDirectory.h"
#include "files/zip/ZipInflate.h"

#include <optional>
#include <string_view>
#include <vector>

namespace utility
{

/// Reads the content of one entry after the other, each in pieces of any size.
///
/// Never gives more bytes than the directory says; CRC and size are checked at the end.
class CZipEntryReader
{
public:
    explicit CZipEntryReader(CZipInput& input) : m_Input(input) {}

    /// ZIP_PASSWORD for an encrypted entry that another password opens, else a result code.
    std::uint32_t Begin(const CZipRecord& record, std::string_view password);

    /// Fills the buffer as far as there is something: ZIP_SUCCESS once the entry has come to its
    /// end, ZIP_MORE before it.
    std::uint32_t Read(char* bytes, std::size_t count, std::size_t& done);

private:
    std::uint32_t BeginData(const CZipRecord& record);
    std::uint32_t BeginCipher(std::string_view password);
    std::uint32_t ReadStored(char* bytes, std::size_t count, std::size_t& done);
    std::uint32_t ReadDeflated(char* bytes, std::size_t count, std::size_t& done);
    std::uint32_t Refill();
    std::uint32_t CheckEnd();

    CZipInput& m_Input;
    CZipInflate m_Inflate;
    std::optional<CZipCipher> m_Cipher;
    CZipRecord m_Record;
    std::uint64_t m_Offset = 0;     // of the packed bytes that come next
    std::uint64_t m_PackedLeft = 0; // behind that place
    std::uint64_t m_Left = 0;       // unpacked
    std::uint32_t m_Crc = 0;
    bool m_HasEnded = false; // the deflated data
    std::vector<char> m_Buffer;
    std::string_view m_Packed; // what is left in the buffer
};

/// Where the data of an entry begin, as its local header tells; none if there is no such header.
std::optional<std::uint64_t> FindZipData(CZipInput& input, const CZipRecord& record);

/// The times of an entry from its local header and the directory.
CZipTimes ReadZipTimes(CZipInput& input, const CZipRecord& record);

} // namespace utility
