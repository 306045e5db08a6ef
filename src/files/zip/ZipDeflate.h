#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace utility
{

/// Takes the bytes of an entry on their way into an archive.
class IZipSink
{
public:
    virtual ~IZipSink() = default;

    /// A result code.
    virtual std::uint32_t Put(std::string_view bytes) = 0;
};

/// Packs bytes by zlib, piece by piece. One serves many entries.
class CZipDeflate
{
public:
    CZipDeflate();
    ~CZipDeflate();
    CZipDeflate(const CZipDeflate&) = delete;
    CZipDeflate& operator=(const CZipDeflate&) = delete;

    /// Before each entry; false without memory.
    [[nodiscard]] bool Begin();

    /// Packs the bytes into the sink, and all that is left if they are the last; a result code.
    std::uint32_t Pack(std::string_view bytes, bool isLast, IZipSink& sink);

    /// No more than so many bytes come from packing `size`.
    static std::uint64_t GetBound(std::uint64_t size);

private:
    struct CStream;
    std::unique_ptr<CStream> m_Stream;
    std::vector<char> m_Packed;
};

} // namespace utility
