#include "files/XXTea.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

using namespace utility;

namespace
{

constexpr CXXTeaKey KEY = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

std::string Hex(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes)
    {
        const unsigned value = static_cast<unsigned char>(byte);
        text += "0123456789abcdef"[value >> 4];
        text += "0123456789abcdef"[value & 15U];
    }
    return text;
}

// Worked out apart from this library, straight from the published form of the cipher.
TEST(XXTeaTest, ByteFormsGiveThePublishedCipher)
{
    std::string counted(64, '\0');
    std::iota(counted.begin(), counted.end(), '\0');
    const struct
    {
        std::string Bytes;
        const char* Hex;
    } cases[] = {
        {"a", "f05bb4de06688c07"},
        {"abcd", "3c8baf53d0816806"},
        {"hello world", "5120f975e103d11a5f7b6667565c5487"},
        {counted, "efcc4f3b0b8ab8f366ce107b52ca02ab6a0237e3c69032cb34074acd72d5e4d22a688feb845abadf"
                  "dada9e3a5f461779cd029543e20a7dffec57270da76fba88ba4e571a"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Hex);
        EXPECT_EQ(Hex(EncryptXXTea(test.Bytes, KEY)), test.Hex);
        EXPECT_EQ(DecryptXXTea(EncryptXXTea(test.Bytes, KEY), KEY), test.Bytes);
    }
}

TEST(XXTeaTest, EveryLengthComesBackAndNoBytesStayNone)
{
    std::mt19937 random(7);
    for (std::size_t length = 0; length < 300; ++length)
    {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const std::string enciphered = EncryptXXTea(bytes, KEY);
        EXPECT_EQ(enciphered.size(), length == 0 ? 0 : (length + 3) / 4 * 4 + 4);
        EXPECT_EQ(DecryptXXTea(enciphered, KEY), bytes);
    }
}

TEST(XXTeaTest, AnotherKeyOrDamageIsToldByTheLength)
{
    const std::string enciphered = EncryptXXTea("what nobody else should read", KEY);
    CXXTeaKey other = KEY;
    other[15] = 0;

    EXPECT_EQ(DecryptXXTea(enciphered, other), "");
    EXPECT_EQ(DecryptXXTea(enciphered.substr(0, enciphered.size() - 1), KEY), "");
    EXPECT_EQ(DecryptXXTea("x", KEY), "");
    EXPECT_EQ(DecryptXXTea(std::string(4, '\0'), KEY), "")
        << "one word is left unchanged: length 0";
}

TEST(XXTeaTest, TextFormsTakeTheFirstHalfOfTheText)
{
    const CString enciphered = xxtea_encrypt(u"abcd", u"key");

    EXPECT_EQ(enciphered, u"\x66c8\xc7e6\x5cf3\x5144");
    EXPECT_EQ(xxtea_encrypt(u"abxy", u"key"), enciphered);
    EXPECT_EQ(xxtea_encrypt(u"\u00E9\u4E2D", u"\u4E2D\u6587\u4E2D\u6587\u4E2D\u6587\u4E2D\u6587"),
              u"\xa403\xc8a3\x8815\x882b");
    EXPECT_EQ(xxtea_encrypt(CString(), u"key"), u"");
    EXPECT_EQ(xxtea_decrypt(CString(), u"key"), u"");
    EXPECT_EQ(xxtea_decrypt(enciphered, u"key"), u"") << "half of the units are no whole block";

    // A text whose first half is a whole block comes back as what that block holds.
    CString doubled = enciphered;
    doubled += enciphered;
    EXPECT_EQ(xxtea_decrypt(doubled, u"key"), u"ab");
}

TEST(XXTeaTest, KeysEndAtTheirFirstZeroByte)
{
    EXPECT_EQ(MakeXXTeaKey(u"abc"), MakeXXTeaKey(u"axyz"));
    EXPECT_EQ(MakeXXTeaKey(CString()), CXXTeaKey{});
    EXPECT_EQ(MakeXXTeaKey(u"\u4E2D\u6587a\u6587"), (CXXTeaKey{0x2D, 0x4E, 0x87, 0x65, 0x61}));
    EXPECT_EQ(MakeXXTeaKey(CString(u'\u4E2D', 20)), MakeXXTeaKey(CString(u'\u4E2D', 8)));
}

} // namespace
