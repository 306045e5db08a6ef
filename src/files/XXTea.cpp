#include "files/XXTea.h"

#include "platform/base/object/InvalidArgException.h"

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

namespace utility
{

namespace
{

constexpr std::uint32_t DELTA = 0x9E3779B9;
constexpr std::size_t WORD_SIZE = 4; // bytes

using CWords = std::vector<std::uint32_t>;
using CKeyWords = std::array<std::uint32_t, XXTEA_KEY_SIZE / WORD_SIZE>;

/// Into words of 4 bytes, the lowest first, the last one filled up with zeros.
void BytesToWords(std::string_view bytes, std::span<std::uint32_t> words)
{
    for (std::size_t i = 0; i < bytes.size(); ++i)
        words[i / WORD_SIZE] |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]))
                                << (8 * (i % WORD_SIZE));
}

std::string WordsToBytes(const CWords& words, std::size_t count)
{
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(words[i / WORD_SIZE] >> (8 * (i % WORD_SIZE)));
    return bytes;
}

std::size_t WordsFor(std::string_view bytes)
{
    return bytes.size() / WORD_SIZE + (bytes.size() % WORD_SIZE != 0 ? 1 : 0);
}

CKeyWords WordsOf(const CXXTeaKey& key)
{
    CKeyWords words = {};
    BytesToWords({reinterpret_cast<const char*>(key.data()), key.size()}, words);
    return words;
}

std::uint32_t RoundsFor(const CWords& words)
{
    return static_cast<std::uint32_t>(6 + 52 / words.size());
}

/// What a word takes up from its neighbours.
std::uint32_t Mix(std::uint32_t before, std::uint32_t behind, std::uint32_t sum,
                  const CKeyWords& key, std::size_t place)
{
    const std::uint32_t keyWord = key[(place ^ (sum >> 2)) & 3U];
    return (((before >> 5) ^ (behind << 2)) + ((behind >> 3) ^ (before << 4))) ^
           ((sum ^ behind) + (keyWord ^ before));
}

void Encipher(CWords& words, const CKeyWords& key)
{
    if (words.size() < 2)
        return;
    const std::size_t last = words.size() - 1;
    std::uint32_t before = words[last];
    std::uint32_t sum = 0;
    for (std::uint32_t round = RoundsFor(words); round > 0; --round)
    {
        sum += DELTA;
        for (std::size_t i = 0; i <= last; ++i)
        {
            const std::uint32_t behind = words[i == last ? 0 : i + 1];
            before = words[i] += Mix(before, behind, sum, key, i);
        }
    }
}

void Decipher(CWords& words, const CKeyWords& key)
{
    if (words.size() < 2)
        return;
    const std::size_t last = words.size() - 1;
    std::uint32_t behind = words[0];
    for (std::uint32_t sum = RoundsFor(words) * DELTA; sum != 0; sum -= DELTA)
    {
        for (std::size_t i = last + 1; i-- > 0;)
        {
            const std::uint32_t before = words[i == 0 ? last : i - 1];
            behind = words[i] -= Mix(before, behind, sum, key, i);
        }
    }
}

/// The first bytes of a text's memory form.
std::string MemoryForm(std::u16string_view text, std::size_t count)
{
    std::string bytes(std::min(count, text.size() * sizeof(char16_t)), '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(text[i / 2] >> (8 * (i % 2)));
    return bytes;
}

/// Bytes as a text that two zero bytes end, wherever they stand as a unit.
CString TextOf(std::string_view bytes)
{
    CString text;
    for (std::size_t i = 0; i < bytes.size(); i += 2)
    {
        const unsigned low = static_cast<unsigned char>(bytes[i]);
        const unsigned high = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0U;
        if (low == 0 && high == 0)
            break;
        text += static_cast<char16_t>(low | high << 8);
    }
    return text;
}

} // namespace

std::string EncryptXXTea(std::string_view bytes, const CXXTeaKey& key)
{
    if (bytes.empty())
        return {};
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
        AfxThrowInvalidArgException();
    CWords words(WordsFor(bytes) + 1);
    BytesToWords(bytes, words);
    words.back() = static_cast<std::uint32_t>(bytes.size());
    Encipher(words, WordsOf(key));
    return WordsToBytes(words, words.size() * WORD_SIZE);
}

std::string DecryptXXTea(std::string_view bytes, const CXXTeaKey& key)
{
    if (bytes.empty())
        return {};
    CWords words(WordsFor(bytes));
    BytesToWords(bytes, words);
    Decipher(words, WordsOf(key));
    const std::size_t length = words.back();
    const std::size_t room = (words.size() - 1) * WORD_SIZE;
    if (length > room || length + WORD_SIZE <= room)
        return {};
    return WordsToBytes(words, length);
}

CString xxtea_encrypt(const CString& data, const CString& key)
{
    const std::string bytes = MemoryForm(data.View(), data.View().size());
    return TextOf(EncryptXXTea(bytes, MakeXXTeaKey(key)));
}

CString xxtea_decrypt(const CString& data, const CString& key)
{
    const std::string bytes = MemoryForm(data.View(), data.View().size());
    return TextOf(DecryptXXTea(bytes, MakeXXTeaKey(key)));
}

CXXTeaKey MakeXXTeaKey(const CString& key)
{
    CXXTeaKey bytes = {};
    const std::string form = MemoryForm(key.View(), bytes.size());
    const std::size_t live = std::min(form.find('\0'), form.size());
    std::copy_n(form.begin(), live, bytes.begin());
    return bytes;
}

} // namespace utility
