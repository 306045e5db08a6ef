#pragma once

#include "platform/db/PagedArray.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace utility
{

/// The bytes of one column, by row: repeats are kept once, as long as there are enough of them.
///
/// Each row of the first part holds the number of a distinct value. Once most values are new, the look-up costs more
/// than it saves: from there on each row has a value of its own, numbered behind the distinct ones.
class CTextColumn
{
public:
    void Add(std::string_view bytes);
    std::string_view Get(std::size_t row) const;
    std::size_t GetRowCount() const
    {
        return m_Codes.GetSize() + (m_Values.GetSize() - m_DistinctCount);
    }

private:
    static constexpr std::size_t BLOCK_SIZE = 64 * 1024;
    static constexpr std::size_t TRIAL_ROWS = 4096;

    std::uint32_t AddDistinct(std::string_view bytes);
    void GrowSlots();
    void AddValue(std::string_view bytes);
    char* Allocate(std::size_t size);
    std::string_view ValueAt(std::size_t index) const;

    bool m_IsDirect = false;
    CPagedArray<std::uint32_t> m_Codes; // of the first rows
    std::size_t m_DistinctCount = 0;    // values that m_Codes refers to
    CPagedArray<const char*> m_Values;  // each a 32-bit length and the bytes
    std::vector<std::uint32_t>
        m_Slots; // open addressing over the distinct values; 0 is free, else number + 1

    std::vector<std::unique_ptr<char[]>> m_Blocks;
    std::size_t m_BlockUsed = BLOCK_SIZE;
    char* m_Block = nullptr;
};

} // namespace utility
