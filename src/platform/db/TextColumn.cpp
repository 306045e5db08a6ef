#include "platform/db/TextColumn.h"

#include <cstring>

namespace utility
{

namespace
{

template <typename TWord>
std::uint64_t ReadWord(const char* place)
{
    TWord word;
    std::memcpy(&word, place, sizeof(word));
    return word;
}

/// The last bytes of a value, at most eight; words overlap, so that nothing is done byte by byte.
std::uint64_t ReadEnd(const char* begin, std::size_t size)
{
    const char* const end = begin + size;
    if (size >= 8)
        return ReadWord<std::uint64_t>(end - 8);
    if (size >= 4)
        return ReadWord<std::uint32_t>(begin) << 32 | ReadWord<std::uint32_t>(end - 4);
    if (size >= 2)
        return ReadWord<std::uint16_t>(begin) << 16 | ReadWord<std::uint16_t>(end - 2);
    return size == 1 ? ReadWord<unsigned char>(begin) : 0;
}

/// Good enough to tell the values of one column apart.
std::uint32_t HashOf(std::string_view bytes)
{
    constexpr std::uint64_t FACTOR = 0x9E3779B97F4A7C15; // 2^64 over the golden ratio
    std::uint64_t hash = bytes.size();
    const auto take = [&hash](std::uint64_t word)
    {
        hash = (hash ^ word) * FACTOR;
        hash ^= hash >> 32;
    };
    for (std::size_t place = 0; place + 8 < bytes.size(); place += 8)
        take(ReadWord<std::uint64_t>(bytes.data() + place));
    take(ReadEnd(bytes.data(), bytes.size()));
    take(0); // once more, so that values that differ in one digit are spread
    return static_cast<std::uint32_t>(hash);
}

} // namespace

void CTextColumn::Add(std::string_view bytes)
{
    if (m_IsDirect)
    {
        AddValue(bytes);
        return;
    }
    AddDistinct(bytes);
    if (m_Codes.GetSize() >= TRIAL_ROWS && m_DistinctCount > m_Codes.GetSize() / 2)
        m_IsDirect = true;
    if (m_IsDirect)
        m_Slots = {};
}

void CTextColumn::AddDistinct(std::string_view bytes)
{
    if ((m_DistinctCount + 1) * 2 > m_Slots.size())
        GrowSlots();
    const std::size_t mask = m_Slots.size() - 1;
    const std::uint32_t hash = HashOf(bytes);
    std::size_t place = hash & mask;
    std::size_t probes = 0;
    for (; m_Slots[place].Value; place = (place + ++probes) & mask)
    {
        const CSlot& slot = m_Slots[place];
        if (slot.Hash == hash && ReadValue(slot.Value) == bytes)
        {
            m_Codes.Add(slot.Code);
            return;
        }
    }
    const auto code = static_cast<std::uint32_t>(m_DistinctCount++);
    m_Slots[place] = {AddValue(bytes), hash, code};
    m_Codes.Add(code);
    m_IsDirect = probes > LONGEST_PROBE;
}

void CTextColumn::GrowSlots()
{
    std::vector<CSlot> former(m_Slots.empty() ? 64 : m_Slots.size() * 2);
    former.swap(m_Slots);
    const std::size_t mask = m_Slots.size() - 1;
    for (const CSlot& slot : former)
    {
        if (!slot.Value)
            continue;
        std::size_t place = slot.Hash & mask;
        for (std::size_t probes = 0; m_Slots[place].Value;)
            place = (place + ++probes) & mask;
        m_Slots[place] = slot;
    }
}

const char* CTextColumn::AddValue(std::string_view bytes)
{
    const auto length = static_cast<std::uint32_t>(bytes.size());
    char* const place = Allocate(sizeof(length) + bytes.size());
    std::memcpy(place, &length, sizeof(length));
    if (!bytes.empty())
        std::memcpy(place + sizeof(length), bytes.data(), bytes.size());
    m_Values.Add(place);
    return place;
}

char* CTextColumn::Allocate(std::size_t size)
{
    if (size > BLOCK_SIZE / 4) // a long value has a block of its own, so that little room is lost
    {
        m_Blocks.push_back(std::make_unique_for_overwrite<char[]>(size));
        return m_Blocks.back().get();
    }
    if (m_BlockUsed + size > BLOCK_SIZE)
    {
        m_Blocks.push_back(std::make_unique_for_overwrite<char[]>(BLOCK_SIZE));
        m_Block = m_Blocks.back().get();
        m_BlockUsed = 0;
    }
    char* const place = m_Block + m_BlockUsed;
    m_BlockUsed += size;
    return place;
}

} // namespace utility
