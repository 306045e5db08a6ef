#include "files/zip/ZipOpen.h"
#include "files/zip/ZipResult.h"

#include "Require.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

using namespace utility;

namespace
{

constexpr char PASSWORD[] = "word";             // that of the encrypted archive in the corpus
constexpr std::uint64_t SIZE_LIMIT = 1U << 20U; // of entries that are unpacked whole
constexpr unsigned PIECE = 7;

std::uint32_t CrcOf(std::string_view bytes)
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

/// The code, and as many bytes as came before it, of an entry by pieces of that size.
ZRESULT Unzip(HZIP zip, int index, std::uint64_t size, unsigned piece, std::string& bytes)
{
    std::string buffer(piece, 0);
    for (;;)
    {
        const ZRESULT code = UnzipItem(zip, index, buffer.data(), piece);
        if (code != ZIP_SUCCESS && code != ZIP_MORE)
            return code;
        const std::uint64_t left = size - bytes.size();
        Require(code == ZIP_MORE ? left > piece : left <= piece);
        bytes.append(buffer, 0, static_cast<std::size_t>(std::min<std::uint64_t>(left, piece)));
        if (code == ZIP_SUCCESS)
            return code;
    }
}

/// In one piece and in many it gives the same, and what is sound has its size and CRC.
void CheckEntry(HZIP zip, int index)
{
    ZIPENTRYINFO info;
    Require(GetZipItemInfo(zip, index, &info) == ZIP_SUCCESS);
    if (info.unc_size > SIZE_LIMIT)
        return;
    const auto size = static_cast<unsigned>(info.unc_size);
    std::string whole;
    const ZRESULT code = Unzip(zip, index, size, std::max(size, 1U), whole);
    std::string pieces;
    Require(Unzip(zip, index, size, PIECE, pieces) == code);
    if (code != ZIP_SUCCESS)
        return;
    Require(whole == pieces && whole.size() == size);
    Require(CrcOf(whole) == info.crc);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const HZIP zip = OpenZip(data, static_cast<unsigned>(size), PASSWORD);
    if (!zip)
        return 0;
    ZIPENTRY total;
    Require(GetZipItem(zip, -1, &total) == ZIP_SUCCESS);
    for (int index = 0; index < total.index; ++index)
        CheckEntry(zip, index);
    Require(CloseZipU(zip) == ZIP_SUCCESS);
    return 0;
}
