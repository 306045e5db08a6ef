#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace utility
{

// The XXTEA block cipher, for data that older programs left. It keeps nobody out who is in earnest.
// All state is on the stack, so any thread may call.

constexpr std::size_t XXTEA_KEY_SIZE = 16; // bytes
using CXXTeaKey = std::array<unsigned char, XXTEA_KEY_SIZE>;

/// Bytes under a key: whole words of 4 bytes, the data's length in the last one before it is
/// enciphered. No bytes give no bytes. Up to 2^32-1 bytes; more raise `CInvalidArgException`.
UTILITY_CORE_API std::string EncryptXXTea(std::string_view bytes, const CXXTeaKey& key);

/// The bytes back; empty if the length found does not fit, as with another key in nearly all cases.
/// Bytes that are no multiple of 4 are filled up with zeros.
UTILITY_CORE_API std::string DecryptXXTea(std::string_view bytes, const CXXTeaKey& key);

/// The same over texts, as old data has them; the two do not undo each other.
///
/// Of the data's memory form (two bytes a unit, the low one first) as many bytes count as the text
/// has units, so the first half: of "abcd" the bytes 61 00 62 00. The result's bytes are taken for
/// a text that ends at its first zero unit.
UTILITY_CORE_API CString xxtea_encrypt(const CString& data, const CString& key);
UTILITY_CORE_API CString xxtea_decrypt(const CString& data, const CString& key);

/// The key that a text stands for: its memory form up to the first zero byte, 16 bytes at most, the
/// rest zero. So "abc" and "axyz" are one key.
UTILITY_CORE_API CXXTeaKey MakeXXTeaKey(const CString& key);

} // namespace utility
