#pragma once

#include "platform/db/PagedArray.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace utility
{

/// The bytes of one column, by row: repeats are kept once, as long as there are enough of them.
///
/// Each row of the first part holds the number of a distinct value. Once most values are new, the
/// look-up costs more than it saves: from there on each row has a value of its own, numbered behind
/// the distinct ones. Values that were chosen to collide end the first part too, so that adding
/// stays linear.
class CTextColumn
{
public:
    void Add(std::string_view bytes);

    /// The number of a row's value, from 0; rows of one number hold the same value, and a new row's
    /// is at most one above the highest so far.
    std::size_t GetNumber(std::size_t row) const
    {
        const std::size_t coded = m_Codes.GetSize();
        return row < coded ? m_Codes[row] : m_DistinctCount + (row - coded);
    }
    std::string_view GetValue(std::size_t number) const { return ReadValue(m_Values[number]); }
    std::size_t GetRowCount() const
    {
        return m_Codes.GetSize() + (m_Values.GetSize() - m_DistinctCount);
    }

private:
    static constexpr std::size_t BLOCK_SIZE = 64 * 1024;
    static constexpr std::size_t TRIAL_ROWS = 4096;
    static constexpr std::size_t LONGEST_PROBE = 64; // slots looked at for one value

    struct CSlot
    {
        const char* Value = nullptr; // null is free
        std::uint32_t Hash = 0;
        std::uint32_t Code = 0;
    };

    void AddDistinct(std::string_view bytes);
    void GrowSlots();
    const char* AddValue(std::string_view bytes);
    char* Allocate(std::size_t size);
    static std::string_view ReadValue(const char* place)
    {
        std::uint32_t length = 0;
        std::memcpy(&length, place, sizeof(length));
        return {place + sizeof(length), length};
    }

    bool m_IsDirect = false;
    CPagedArray<std::uint32_t> m_Codes; // of the first rows
    std::size_t m_DistinctCount = 0;    // values that m_Codes refers to
    CPagedArray<const char*> m_Values;  // each a 32-bit length and the bytes
    std::vector<CSlot> m_Slots;         // the distinct values; a taken slot leads 1, 2, 3 ... on

    std::vector<std::unique_ptr<char[]>> m_Blocks;
    std::size_t m_BlockUsed = BLOCK_SIZE;
    char* m_Block = nullptr;
};

} // namespace utility
