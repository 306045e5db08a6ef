#include "files/zip/ZipInflate.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr int RAW_WINDOW_BITS = -15; // 32 KB, and no header of zlib's own
constexpr std::size_t STEP_LIMIT = std::numeric_limits<uInt>::max();

} // namespace

struct CZipInflate::CStream
{
    z_stream m_Zlib{};
};

CZipInflate::CZipInflate() = default;

CZipInflate::~CZipInflate()
{
    if (m_Stream)
        inflateEnd(&m_Stream->m_Zlib);
}

bool CZipInflate::Begin()
{
    if (m_Stream)
        return inflateReset(&m_Stream->m_Zlib) == Z_OK;
    auto stream = std::make_unique<CStream>();
    if (inflateInit2(&stream->m_Zlib, RAW_WINDOW_BITS) != Z_OK)
        return false;
    m_Stream = std::move(stream);
    return true;
}

CZipInflate::EStep CZipInflate::Step(std::string_view& packed, char* bytes, std::size_t count,
                                     std::size_t& done)
{
    z_stream& zlib = m_Stream->m_Zlib;
    const auto given = static_cast<uInt>(std::min(packed.size(), STEP_LIMIT));
    const auto room = static_cast<uInt>(std::min(count, STEP_LIMIT));
    zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data())); // only read
    zlib.avail_in = given;
    zlib.next_out = reinterpret_cast<Bytef*>(bytes);
    zlib.avail_out = room;
    const int result = inflate(&zlib, Z_NO_FLUSH);
    packed.remove_prefix(given - zlib.avail_in);
    done = room - zlib.avail_out;
    if (result == Z_STREAM_END)
        return EStep::Ended;
    return result == Z_OK || result == Z_BUF_ERROR ? EStep::Going : EStep::Damaged;
}

} // namespace utility
