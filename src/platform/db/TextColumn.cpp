#include "platform/db/TextColumn.h"

#include <cstring>
#include <functional>

namespace utility
{

void CTextColumn::Add(std::string_view bytes)
{
    if (m_IsDirect)
    {
        AddValue(bytes);
        return;
    }
    m_Codes.Add(AddDistinct(bytes));
    if (m_Codes.GetSize() >= TRIAL_ROWS && m_DistinctCount > m_Codes.GetSize() / 2)
    {
        m_IsDirect = true;
        m_Slots = {};
    }
}

std::string_view CTextColumn::Get(std::size_t row) const
{
    const std::size_t coded = m_Codes.GetSize();
    return ValueAt(row < coded ? m_Codes[row] : m_DistinctCount + (row - coded));
}

std::uint32_t CTextColumn::AddDistinct(std::string_view bytes)
{
    if ((m_DistinctCount + 1) * 2 > m_Slots.size())
        GrowSlots();
    const std::size_t mask = m_Slots.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(bytes) & mask;
    while (m_Slots[slot] != 0)
    {
        const std::uint32_t code = m_Slots[slot] - 1;
        if (ValueAt(code) == bytes)
            return code;
        slot = (slot + 1) & mask;
    }
    AddValue(bytes);
    m_Slots[slot] = static_cast<std::uint32_t>(++m_DistinctCount);
    return m_Slots[slot] - 1;
}

void CTextColumn::GrowSlots()
{
    m_Slots.assign(m_Slots.empty() ? 64 : m_Slots.size() * 2, 0);
    const std::size_t mask = m_Slots.size() - 1;
    for (std::size_t code = 0; code < m_DistinctCount; ++code)
    {
        std::size_t slot = std::hash<std::string_view>()(ValueAt(code)) & mask;
        while (m_Slots[slot] != 0)
            slot = (slot + 1) & mask;
        m_Slots[slot] = static_cast<std::uint32_t>(code + 1);
    }
}

void CTextColumn::AddValue(std::string_view bytes)
{
    const auto length = static_cast<std::uint32_t>(bytes.size());
    char* const place = Allocate(sizeof(length) + bytes.size());
    std::memcpy(place, &length, sizeof(length));
    if (!bytes.empty())
        std::memcpy(place + sizeof(length), bytes.data(), bytes.size());
    m_Values.Add(place);
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

std::string_view CTextColumn::ValueAt(std::size_t index) const
{
    std::uint32_t length = 0;
    std::memcpy(&length, m_Values[index], sizeof(length));
    return {m_Values[index] + sizeof(length), length};
}

} // namespace utility
