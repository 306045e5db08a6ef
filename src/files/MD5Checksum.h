#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <array>
#include <cstdint>

namespace utility
{

class CFile;

/// MD5 digests (RFC 1321) as 32 lower-case hexadecimal digits.
///
/// Tells whether data is still the same; it is no protection against somebody who changes it on
/// purpose. All state is on the stack, so any thread may call.
class UTILITY_CORE_API CMD5Checksum
{
public:
    virtual ~CMD5Checksum() = default;

    /// Of the file from its position to its end.
    static CString GetMD5(CFile& file);
    /// Of a whole file, which nobody may write meanwhile; raises `CFileException` if it cannot be
    /// opened or read.
    static CString GetMD5(const CString& path);
    /// Of bytes; a null pointer goes with length 0.
    static CString GetMD5(unsigned char* bytes, unsigned int count);

protected:
    CMD5Checksum() = default;

    void Update(const unsigned char* bytes, unsigned int count);
    /// Pads, appends the count of bits, and words the digest.
    CString Final();
    /// One block of 64 bytes.
    void Transform(const unsigned char* block);

    // One step of each round: `a` takes the mixed three, a word of the block and a constant of the
    // step, is turned left and added to `b`.
    static void FF(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                   std::uint32_t word, unsigned int bits, std::uint32_t constant);
    static void GG(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                   std::uint32_t word, unsigned int bits, std::uint32_t constant);
    static void HH(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                   std::uint32_t word, unsigned int bits, std::uint32_t constant);
    static void II(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                   std::uint32_t word, unsigned int bits, std::uint32_t constant);

    static std::uint32_t RotateLeft(std::uint32_t word, unsigned int bits);
    /// Bytes to words and back, the lowest byte first; `count` is in bytes, a multiple of 4.
    static void ByteToDWord(std::uint32_t* words, const unsigned char* bytes, unsigned int count);
    static void ULongToUInt8(unsigned char* bytes, const std::uint32_t* words, unsigned int count);

private:
    std::array<std::uint32_t, 4> m_State = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    std::array<std::uint32_t, 2> m_BitCount = {}; // the low word first
    std::array<unsigned char, 64> m_Block = {};   // bytes that do not fill a block yet
};

} // namespace utility
