#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace utility
{

/// Unpacks deflated bytes by zlib, piece by piece. One serves many entries.
class CZipInflate
{
public:
    enum class EStep
    {
        Going, // wants more input or more room
        Ended, // the data are complete
        Damaged
    };

    CZipInflate();
    ~CZipInflate();
    CZipInflate(const CZipInflate&) = delete;
    CZipInflate& operator=(const CZipInflate&) = delete;

    /// Before each entry; false without memory.
    [[nodiscard]] bool Begin();

    /// Takes from the front of `packed` and fills the front of `bytes`; `done` is how much it
    /// filled.
    EStep Step(std::string_view& packed, char* bytes, std::size_t count, std::size_t& done);

private:
    struct CStream;
    std::unique_ptr<CStream> m_Stream;
};

} // namespace utility
