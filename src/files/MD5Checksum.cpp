#include "files/MD5Checksum.h"

#include "platform/system/file/File.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace utility
{

namespace
{

constexpr unsigned int BLOCK_SIZE = 64; // bytes
constexpr unsigned int COUNT_SIZE = 8;  // bytes of the bit count that closes the last block
constexpr unsigned char PADDING_MARK = 0x80;
constexpr unsigned int READ_SIZE = 65536;
constexpr std::size_t DIGEST_SIZE = 16; // bytes
constexpr char16_t HEX_DIGITS[] = u"0123456789abcdef";

} // namespace

inline std::uint32_t CMD5Checksum::RotateLeft(std::uint32_t word, unsigned int bits)
{
    return std::rotl(word, static_cast<int>(bits));
}

inline void CMD5Checksum::FF(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                             std::uint32_t word, unsigned int bits, std::uint32_t constant)
{
    a = RotateLeft(a + word + constant + ((b & (c ^ d)) ^ d), bits) + b;
}

// Summed, not or-ed: the two halves have no bit in common, and only one of them waits for `b`,
// which the step before has just made. That wait is what the whole digest's speed hangs on.
inline void CMD5Checksum::GG(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                             std::uint32_t word, unsigned int bits, std::uint32_t constant)
{
    a = RotateLeft(a + word + constant + (c & ~d) + (b & d), bits) + b;
}

inline void CMD5Checksum::HH(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                             std::uint32_t word, unsigned int bits, std::uint32_t constant)
{
    a = RotateLeft(a + word + constant + (b ^ (c ^ d)), bits) + b;
}

inline void CMD5Checksum::II(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                             std::uint32_t word, unsigned int bits, std::uint32_t constant)
{
    a = RotateLeft(a + word + constant + (c ^ (b | ~d)), bits) + b;
}

void CMD5Checksum::ByteToDWord(std::uint32_t* words, const unsigned char* bytes, unsigned int count)
{
    for (unsigned int i = 0; i < count; i += 4)
        words[i / 4] = static_cast<std::uint32_t>(bytes[i]) |
                       static_cast<std::uint32_t>(bytes[i + 1]) << 8 |
                       static_cast<std::uint32_t>(bytes[i + 2]) << 16 |
                       static_cast<std::uint32_t>(bytes[i + 3]) << 24;
}

void CMD5Checksum::ULongToUInt8(unsigned char* bytes, const std::uint32_t* words,
                                unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        bytes[i] = static_cast<unsigned char>(words[i / 4] >> (8 * (i % 4)));
}

void CMD5Checksum::Transform(const unsigned char* block)
{
    std::uint32_t words[BLOCK_SIZE / 4];
    ByteToDWord(words, block, BLOCK_SIZE);
    std::uint32_t a = m_State[0];
    std::uint32_t b = m_State[1];
    std::uint32_t c = m_State[2];
    std::uint32_t d = m_State[3];

    FF(a, b, c, d, words[0], 7, 0xD76AA478);
    FF(d, a, b, c, words[1], 12, 0xE8C7B756);
    FF(c, d, a, b, words[2], 17, 0x242070DB);
    FF(b, c, d, a, words[3], 22, 0xC1BDCEEE);
    FF(a, b, c, d, words[4], 7, 0xF57C0FAF);
    FF(d, a, b, c, words[5], 12, 0x4787C62A);
    FF(c, d, a, b, words[6], 17, 0xA8304613);
    FF(b, c, d, a, words[7], 22, 0xFD469501);
    FF(a, b, c, d, words[8], 7, 0x698098D8);
    FF(d, a, b, c, words[9], 12, 0x8B44F7AF);
    FF(c, d, a, b, words[10], 17, 0xFFFF5BB1);
    FF(b, c, d, a, words[11], 22, 0x895CD7BE);
    FF(a, b, c, d, words[12], 7, 0x6B901122);
    FF(d, a, b, c, words[13], 12, 0xFD987193);
    FF(c, d, a, b, words[14], 17, 0xA679438E);
    FF(b, c, d, a, words[15], 22, 0x49B40821);

    GG(a, b, c, d, words[1], 5, 0xF61E2562);
    GG(d, a, b, c, words[6], 9, 0xC040B340);
    GG(c, d, a, b, words[11], 14, 0x265E5A51);
    GG(b, c, d, a, words[0], 20, 0xE9B6C7AA);
    GG(a, b, c, d, words[5], 5, 0xD62F105D);
    GG(d, a, b, c, words[10], 9, 0x02441453);
    GG(c, d, a, b, words[15], 14, 0xD8A1E681);
    GG(b, c, d, a, words[4], 20, 0xE7D3FBC8);
    GG(a, b, c, d, words[9], 5, 0x21E1CDE6);
    GG(d, a, b, c, words[14], 9, 0xC33707D6);
    GG(c, d, a, b, words[3], 14, 0xF4D50D87);
    GG(b, c, d, a, words[8], 20, 0x455A14ED);
    GG(a, b, c, d, words[13], 5, 0xA9E3E905);
    GG(d, a, b, c, words[2], 9, 0xFCEFA3F8);
    GG(c, d, a, b, words[7], 14, 0x676F02D9);
    GG(b, c, d, a, words[12], 20, 0x8D2A4C8A);

    HH(a, b, c, d, words[5], 4, 0xFFFA3942);
    HH(d, a, b, c, words[8], 11, 0x8771F681);
    HH(c, d, a, b, words[11], 16, 0x6D9D6122);
    HH(b, c, d, a, words[14], 23, 0xFDE5380C);
    HH(a, b, c, d, words[1], 4, 0xA4BEEA44);
    HH(d, a, b, c, words[4], 11, 0x4BDECFA9);
    HH(c, d, a, b, words[7], 16, 0xF6BB4B60);
    HH(b, c, d, a, words[10], 23, 0xBEBFBC70);
    HH(a, b, c, d, words[13], 4, 0x289B7EC6);
    HH(d, a, b, c, words[0], 11, 0xEAA127FA);
    HH(c, d, a, b, words[3], 16, 0xD4EF3085);
    HH(b, c, d, a, words[6], 23, 0x04881D05);
    HH(a, b, c, d, words[9], 4, 0xD9D4D039);
    HH(d, a, b, c, words[12], 11, 0xE6DB99E5);
    HH(c, d, a, b, words[15], 16, 0x1FA27CF8);
    HH(b, c, d, a, words[2], 23, 0xC4AC5665);

    II(a, b, c, d, words[0], 6, 0xF4292244);
    II(d, a, b, c, words[7], 10, 0x432AFF97);
    II(c, d, a, b, words[14], 15, 0xAB9423A7);
    II(b, c, d, a, words[5], 21, 0xFC93A039);
    II(a, b, c, d, words[12], 6, 0x655B59C3);
    II(d, a, b, c, words[3], 10, 0x8F0CCC92);
    II(c, d, a, b, words[10], 15, 0xFFEFF47D);
    II(b, c, d, a, words[1], 21, 0x85845DD1);
    II(a, b, c, d, words[8], 6, 0x6FA87E4F);
    II(d, a, b, c, words[15], 10, 0xFE2CE6E0);
    II(c, d, a, b, words[6], 15, 0xA3014314);
    II(b, c, d, a, words[13], 21, 0x4E0811A1);
    II(a, b, c, d, words[4], 6, 0xF7537E82);
    II(d, a, b, c, words[11], 10, 0xBD3AF235);
    II(c, d, a, b, words[2], 15, 0x2AD7D2BB);
    II(b, c, d, a, words[9], 21, 0xEB86D391);

    m_State[0] += a;
    m_State[1] += b;
    m_State[2] += c;
    m_State[3] += d;
}

void CMD5Checksum::Update(const unsigned char* bytes, unsigned int count)
{
    unsigned int held = m_BitCount[0] / 8 % BLOCK_SIZE;
    const std::uint32_t lowBits = m_BitCount[0];
    m_BitCount[0] += count << 3;
    m_BitCount[1] += (count >> 29) + (m_BitCount[0] < lowBits ? 1 : 0);
    if (held > 0 && count >= BLOCK_SIZE - held)
    {
        const unsigned int missing = BLOCK_SIZE - held;
        std::memcpy(m_Block.data() + held, bytes, missing);
        Transform(m_Block.data());
        bytes += missing;
        count -= missing;
        held = 0;
    }
    for (; count >= BLOCK_SIZE; bytes += BLOCK_SIZE, count -= BLOCK_SIZE)
        Transform(bytes);
    std::copy_n(bytes, count, m_Block.data() + held);
}

CString CMD5Checksum::Final()
{
    unsigned char bitCount[COUNT_SIZE];
    ULongToUInt8(bitCount, m_BitCount.data(), COUNT_SIZE);
    const unsigned int held = m_BitCount[0] / 8 % BLOCK_SIZE;
    const unsigned int blocks = held < BLOCK_SIZE - COUNT_SIZE ? 1 : 2;
    constexpr unsigned char padding[BLOCK_SIZE] = {PADDING_MARK};
    Update(padding, blocks * BLOCK_SIZE - COUNT_SIZE - held);
    Update(bitCount, COUNT_SIZE);

    std::array<unsigned char, DIGEST_SIZE> digest;
    ULongToUInt8(digest.data(), m_State.data(), static_cast<unsigned int>(digest.size()));
    char16_t text[2 * DIGEST_SIZE];
    for (std::size_t i = 0; i < digest.size(); ++i)
    {
        text[2 * i] = HEX_DIGITS[digest[i] >> 4];
        text[2 * i + 1] = HEX_DIGITS[digest[i] & 0xF];
    }
    return CString(std::u16string_view(text, std::size(text)));
}

CString CMD5Checksum::GetMD5(CFile& file)
{
    CMD5Checksum checksum;
    std::array<unsigned char, READ_SIZE> bytes;
    while (const UINT count = file.Read(bytes.data(), READ_SIZE))
        checksum.Update(bytes.data(), count);
    return checksum.Final();
}

CString CMD5Checksum::GetMD5(const CString& path)
{
    CFile file(path, CFile::typeBinary | CFile::shareDenyWrite);
    return GetMD5(file);
}

CString CMD5Checksum::GetMD5(unsigned char* bytes, unsigned int count)
{
    CMD5Checksum checksum;
    checksum.Update(bytes, count);
    return checksum.Final();
}

} // namespace utility
