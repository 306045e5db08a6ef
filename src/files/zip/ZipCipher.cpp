#include "files/zip/ZipCipher.h"

#include <zlib.h>

namespace utility
{

namespace
{

// From the description of the format by its maker
constexpr std::array<std::uint32_t, 3> FIRST_KEYS = {0x12345678, 0x23456789, 0x34567890};
constexpr std::uint32_t KEY_FACTOR = 134775813;

/// One step of the CRC with neither end inverted, as the keys want it.
std::uint32_t CrcStep(std::uint32_t crc, unsigned char byte)
{
    static const z_crc_t* const table = get_crc_table();
    return static_cast<std::uint32_t>(table[(crc ^ byte) & 0xFFU]) ^ crc >> 8U;
}

} // namespace

CZipCipher::CZipCipher(std::string_view password) : m_Keys(FIRST_KEYS)
{
    for (const char byte : password)
        Update(static_cast<unsigned char>(byte));
}

unsigned char CZipCipher::NextMask() const
{
    const std::uint32_t seed = (m_Keys[2] & 0xFFFFU) | 2U;
    return static_cast<unsigned char>(seed * (seed ^ 1U) >> 8U);
}

void CZipCipher::Update(unsigned char plain)
{
    m_Keys[0] = CrcStep(m_Keys[0], plain);
    m_Keys[1] = (m_Keys[1] + (m_Keys[0] & 0xFFU)) * KEY_FACTOR + 1;
    m_Keys[2] = CrcStep(m_Keys[2], static_cast<unsigned char>(m_Keys[1] >> 24U));
}

void CZipCipher::Encrypt(char* bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto plain = static_cast<unsigned char>(bytes[i]);
        bytes[i] = static_cast<char>(plain ^ NextMask());
        Update(plain);
    }
}

void CZipCipher::Decrypt(char* bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto plain =
            static_cast<unsigned char>(static_cast<unsigned char>(bytes[i]) ^ NextMask());
        bytes[i] = static_cast<char>(plain);
        Update(plain);
    }
}

} // namespace utility
