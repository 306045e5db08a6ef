#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace utility
{

/// Finds names by a table of hashes with a secret key, so that nobody can choose names that meet.
///
/// Of equal names the first counts. `\` is taken for `/`; folded, case is not regarded.
class CZipNameIndex
{
public:
    bool IsMade() const { return !m_Slots.empty(); }

    /// For so many names, added one after the other.
    void Begin(std::size_t count, bool ignoreCase);
    template <typename TNameOf>
    void Add(int index, TNameOf nameOf);

    /// The index of the name, or -1.
    template <typename TNameOf>
    int Find(std::u16string_view name, TNameOf nameOf) const;

private:
    struct CSlot
    {
        std::uint32_t m_Hash = 0;
        int m_Index = -1;
    };

    std::uint32_t Hash(std::u16string_view name) const;
    bool IsEqual(std::u16string_view left, std::u16string_view right) const;

    /// The slot of that name, or the free one where it belongs.
    template <typename TNameOf>
    std::size_t FindSlot(std::u16string_view name, std::uint32_t hash, TNameOf nameOf) const
    {
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = hash & mask;
        while (m_Slots[slot].m_Index >= 0 &&
               (m_Slots[slot].m_Hash != hash || !IsEqual(nameOf(m_Slots[slot].m_Index), name)))
            slot = (slot + 1) & mask;
        return slot;
    }

    std::vector<CSlot> m_Slots; // a power of two, half of them free at least
    std::uint64_t m_Key = 0;
    bool m_IgnoresCase = false;
};

template <typename TNameOf>
void CZipNameIndex::Add(int index, TNameOf nameOf)
{
    const std::u16string_view name = nameOf(index);
    const std::uint32_t hash = Hash(name);
    CSlot& slot = m_Slots[FindSlot(name, hash, nameOf)];
    if (slot.m_Index < 0)
        slot = {hash, index};
}

template <typename TNameOf>
int CZipNameIndex::Find(std::u16string_view name, TNameOf nameOf) const
{
    return m_Slots[FindSlot(name, Hash(name), nameOf)].m_Index;
}

} // namespace utility
