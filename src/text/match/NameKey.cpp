#include "text/match/NameKey.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace utility
{

namespace
{

// One byte a unit, in the order of names: the end, "<", other signs, digits and letters. Units
// beyond ASCII, which are no letters there, share a byte, and nothing behind them is packed.
constexpr std::uint8_t LESS_SIGN = 1;
constexpr std::uint8_t FIRST_OTHER = 2;
constexpr std::uint8_t FOREIGN_OTHER = 130;
constexpr std::uint8_t FIRST_WORD = 131; // of "0", and of every run of digits
constexpr char16_t ASCII_END = 0x80;

constexpr std::size_t MOST_BYTES = 15;

std::uint8_t PackUnit(char16_t unit)
{
    if (unit == u'<')
        return LESS_SIGN;
    if (unit >= ASCII_END)
        return FOREIGN_OTHER;
    return static_cast<std::uint8_t>(IsAlnum(unit) ? FIRST_WORD + ToUpper(unit) - u'0'
                                                   : FIRST_OTHER + unit);
}

class CKeyWriter
{
public:
    bool IsFull() const { return m_Count == MOST_BYTES; }
    void Add(std::uint8_t byte)
    {
        std::uint64_t& half = m_Count < 8 ? m_Key.m_High : m_Key.m_Low;
        half |= std::uint64_t{byte} << (56 - 8 * (m_Count % 8));
        ++m_Count;
    }

    /// The name's end, which stands before any unit.
    void AddEnd() { m_Count = MOST_BYTES; }

    CNameKey Finish()
    {
        m_Key.m_Low |= m_Count;
        return m_Key;
    }

private:
    CNameKey m_Key;
    std::size_t m_Count = 0;
};

/// A run of digits: longer ones are larger, so its length comes before it. False if the length does
/// not fit.
bool AddRun(CKeyWriter& key, std::u16string_view run)
{
    key.Add(FIRST_WORD);
    if (key.IsFull() || run.size() > UINT8_MAX)
        return false;
    key.Add(static_cast<std::uint8_t>(run.size()));
    for (std::size_t place = 0; place < run.size() && !key.IsFull(); ++place)
        key.Add(static_cast<std::uint8_t>(run[place]));
    return true;
}

} // namespace

CNameKey MakeNameKey(std::u16string_view name)
{
    CKeyWriter key;
    name = name.substr(0, name.find(u'\0'));
    while (!key.IsFull() && !name.empty())
    {
        if (IsDigit(name.front()))
        {
            const auto* const end = std::find_if_not(name.begin(), name.end(), IsDigit);
            const auto length = static_cast<std::size_t>(end - name.begin());
            const bool isPacked = AddRun(key, name.substr(0, length));
            name.remove_prefix(length);
            // Behind a run a separator may begin a fraction or count for nothing.
            if (!isPacked || (!name.empty() && (name.front() == u'.' || name.front() == u',')))
                return key.Finish();
            continue;
        }
        key.Add(PackUnit(name.front()));
        if (name.front() >= ASCII_END)
            return key.Finish();
        name.remove_prefix(1);
    }
    if (name.empty())
        key.AddEnd();
    return key.Finish();
}

int CompareNameKeys(const CNameKey& left, const CNameKey& right)
{
    const std::uint64_t decided = std::min(left.m_Low & 0xFF, right.m_Low & 0xFF);
    const std::uint64_t high = left.m_High ^ right.m_High;
    const std::uint64_t low = (left.m_Low ^ right.m_Low) >> 8 << 8;
    if (high != 0)
    {
        const auto place = static_cast<std::uint64_t>(std::countl_zero(high)) / 8;
        return place >= decided ? 0 : left.m_High < right.m_High ? -1 : 1;
    }
    if (low == 0)
        return 0;
    const auto place = 8 + static_cast<std::uint64_t>(std::countl_zero(low)) / 8;
    return place >= decided ? 0 : left.m_Low < right.m_Low ? -1 : 1;
}

} // namespace utility
