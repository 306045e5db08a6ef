#include "files/zip/ZipNameIndex.h"

#include "platform/base/CaseFold.h"
#include "platform/system/Random.h"

#include <algorithm>
#include <bit>

namespace utility
{

namespace
{

constexpr unsigned PRIME_BITS = 31;
constexpr std::uint64_t PRIME = (std::uint64_t{1} << PRIME_BITS) - 1;
constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15U; // odd: mixes all bits into the high ones

char16_t Separated(char16_t unit)
{
    return unit == u'\\' ? u'/' : unit;
}

char16_t Folded(char16_t unit)
{
    return ToLower(Separated(unit));
}

/// The value of the polynomial whose coefficients the units are, at the secret point: two given
/// names meet at no more points than they have units.
template <typename TFold>
std::uint64_t Evaluate(std::u16string_view name, std::uint64_t key, TFold fold)
{
    std::uint64_t value = 1;
    for (const char16_t unit : name)
    {
        value = value * key + fold(unit);
        value = (value & PRIME) + (value >> PRIME_BITS);
    }
    return value % PRIME;
}

} // namespace

void CZipNameIndex::Begin(std::size_t count, bool ignoreCase)
{
    FillRandom(&m_Key, sizeof m_Key);
    m_Key = m_Key % (PRIME - 2) + 2;
    m_IgnoresCase = ignoreCase;
    m_Slots.assign(std::bit_ceil(2 * count + 1), CSlot());
}

std::uint32_t CZipNameIndex::Hash(std::u16string_view name) const
{
    const std::uint64_t value =
        m_IgnoresCase ? Evaluate(name, m_Key, Folded) : Evaluate(name, m_Key, Separated);
    return static_cast<std::uint32_t>(value * SPREAD >> 32U);
}

bool CZipNameIndex::IsEqual(std::u16string_view left, std::u16string_view right) const
{
    return m_IgnoresCase ? std::ranges::equal(left, right, {}, Folded, Folded)
                         : std::ranges::equal(left, right, {}, Separated, Separated);
}

} // namespace utility
