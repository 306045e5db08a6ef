#include "database/transfer/TableSummary.h"

#include "database/transfer/CellText.h"

namespace utility
{

namespace
{

constexpr std::uint64_t FNV_START = 0xCBF29CE484222325; // FNV-1a, 64 bits
constexpr std::uint64_t FNV_FACTOR = 0x100000001B3;

std::uint64_t AddBytes(std::uint64_t hash, std::string_view bytes)
{
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * FNV_FACTOR;
    return hash;
}

std::uint64_t AddNumber(std::uint64_t hash, std::uint64_t number)
{
    return (hash ^ number) * FNV_FACTOR;
}

/// Spreads each bit over all of them, so that a sum of rows does not cancel what differs.
std::uint64_t Mix(std::uint64_t hash)
{
    hash = (hash ^ (hash >> 30U)) * 0xBF58476D1CE4E5B9; // the finaliser of SplitMix64
    hash = (hash ^ (hash >> 27U)) * 0x94D049BB133111EB;
    return hash ^ (hash >> 31U);
}

} // namespace

void CTableSummary::Add(std::span<const CDbValue> values)
{
    std::uint64_t hash = FNV_START;
    for (std::size_t index = 0; index < values.size(); ++index)
    {
        if (values[index].IsNull)
        {
            hash = AddNumber(hash, 0);
            continue;
        }
        if (!MakeCellText(m_Columns[index].Type, values[index], m_Text))
            m_Text = values[index].Bytes; // odd alike on both sides
        hash = AddBytes(AddNumber(hash, m_Text.size() + 1), m_Text);
    }
    m_Checksum += Mix(hash);
    ++m_RowCount;
}

} // namespace utility
