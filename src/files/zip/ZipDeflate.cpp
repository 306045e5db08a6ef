#include "files/zip/ZipDeflate.h"

#include "files/zip/ZipResult.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr int LEVEL = Z_DEFAULT_COMPRESSION;
constexpr int RAW_WINDOW_BITS = -15; // 32 KB, and no header of zlib's own
constexpr int MEMORY_LEVEL = 8;      // zlib's preset
constexpr std::size_t BUFFER_SIZE = 64 * 1024;
constexpr std::size_t STEP_LIMIT = std::numeric_limits<uInt>::max();

} // namespace

struct CZipDeflate::CStream
{
    z_stream m_Zlib{};
};

CZipDeflate::CZipDeflate() = default;

CZipDeflate::~CZipDeflate()
{
    if (m_Stream)
        deflateEnd(&m_Stream->m_Zlib);
}

bool CZipDeflate::Begin()
{
    if (m_Stream)
        return deflateReset(&m_Stream->m_Zlib) == Z_OK;
    auto stream = std::make_unique<CStream>();
    if (deflateInit2(&stream->m_Zlib, LEVEL, Z_DEFLATED, RAW_WINDOW_BITS, MEMORY_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        return false;
    m_Stream = std::move(stream);
    m_Packed.resize(BUFFER_SIZE);
    return true;
}

std::uint32_t CZipDeflate::Pack(std::string_view bytes, bool isLast, IZipSink& sink)
{
    z_stream& zlib = m_Stream->m_Zlib;
    for (bool isDone = false; !isDone;)
    {
        const auto given = static_cast<uInt>(std::min(bytes.size(), STEP_LIMIT));
        const bool ends = isLast && given == bytes.size();
        zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data())); // only read
        zlib.avail_in = given;
        zlib.next_out = reinterpret_cast<Bytef*>(m_Packed.data());
        zlib.avail_out = BUFFER_SIZE;
        const int result = deflate(&zlib, ends ? Z_FINISH : Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
            return ZIP_FLATION;
        bytes.remove_prefix(given - zlib.avail_in);
        const std::string_view packed(m_Packed.data(), BUFFER_SIZE - zlib.avail_out);
        if (const ZRESULT code = packed.empty() ? ZIP_SUCCESS : sink.Put(packed);
            code != ZIP_SUCCESS)
            return code;
        isDone = isLast ? result == Z_STREAM_END : bytes.empty() && zlib.avail_out > 0;
    }
    return ZIP_SUCCESS;
}

std::uint64_t CZipDeflate::GetBound(std::uint64_t size)
{
    // At worst every 16 KB stand in a block of their own that is stored, 5 bytes in front of it.
    return size + (size / (16 * 1024 - 1) + 2) * 5 + 8;
}

} // namespace utility
