#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace utility
{

/// The traditional encryption of zip archives: three keys that go on with each plain byte.
///
/// Not for secrecy: whoever knows a dozen bytes of the content finds the keys in minutes.
class CZipCipher
{
public:
    /// Bytes in front of an entry's data; the last tells a wrong password.
    static constexpr std::size_t HEADER_SIZE = 12;

    explicit CZipCipher(std::string_view password);

    void Encrypt(char* bytes, std::size_t count);
    void Decrypt(char* bytes, std::size_t count);

private:
    unsigned char NextMask() const;
    void Update(unsigned char plain);

    std::array<std::uint32_t, 3> m_Keys;
};

} // namespace utility
