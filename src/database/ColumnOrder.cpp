#include "database/ColumnOrder.h"

#include "database/ColumnNumbers.h"
#include "platform/db/ValueText.h"
#include "text/match/NameKey.h"
#include "text/match/StringCompare.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace utility
{

namespace
{

constexpr std::uint32_t NONE = UINT32_MAX;

/// The distinct cells of some records, each record's cell, and the cells' places in the order:
/// numbers by value, then texts as names are compared.
class CCellOrder
{
public:
    CCellOrder(const CSnapshotStore& store, CColumnNumbers& numbers, std::size_t records)
        : m_Store(store),
          m_Numbers(numbers),
          m_Column(numbers.GetColumn())
    {
        m_CellOf.reserve(records);
    }

    void Add(DWORD record) { m_CellOf.push_back(FindCell(record)); }
    void Rank(bool ascending);

    /// Of the nth record that was added; equal cells have one place.
    std::uint32_t GetPlace(std::size_t added) const { return m_Places[m_CellOf[added]]; }
    std::size_t GetCellCount() const { return m_Records.size(); }

private:
    struct CNumberCell
    {
        double Number = 0;
        std::uint32_t Cell = 0;
    };
    struct CTextCell
    {
        CNameKey Key;
        std::uint32_t Cell = 0;
    };

    std::uint32_t FindCell(DWORD record);
    std::uint32_t FindNullCell(DWORD record);
    std::uint32_t AddCell(DWORD record, const CCellNumber& number);
    CString ReadText(std::uint32_t cell) const;
    bool IsDeleted(DWORD record) const { return m_Store.IsDeleted(record); }
    int CompareTexts(const CTextCell& left, const CTextCell& right) const;
    void RankNumbers();
    void RankTexts();

    const CSnapshotStore& m_Store;
    CColumnNumbers& m_Numbers;
    const CSnapshotColumn& m_Column;
    std::vector<std::uint32_t> m_CellOf;       // by record, in the order of addition
    std::vector<std::uint32_t> m_CellByNumber; // by the number of a value in the column
    std::uint32_t m_NullCell = NONE;
    std::vector<DWORD> m_Records; // by cell, the first record that holds it
    std::vector<CNumberCell> m_NumberCells;
    std::vector<CTextCell> m_TextCells;
    std::vector<std::uint32_t> m_Places; // by cell
    std::uint32_t m_LastPlace = 0;
};

std::uint32_t CCellOrder::FindCell(DWORD record)
{
    if (IsDeleted(record))
        return FindNullCell(record);
    if (!m_Column.HasNumber(record))
    {
        const CDbValue value = m_Column.Get(record);
        return value.IsNull ? FindNullCell(record)
                            : AddCell(record, ReadCellNumber(value, m_Numbers.GetParseType()));
    }
    const std::size_t number = m_Column.GetNumber(record);
    if (number >= m_CellByNumber.size())
        m_CellByNumber.resize(number + 1, NONE);
    std::uint32_t& cell = m_CellByNumber[number];
    if (cell == NONE)
        cell = AddCell(record, m_Numbers.Get(number));
    return cell;
}

std::uint32_t CCellOrder::FindNullCell(DWORD record)
{
    if (m_NullCell == NONE)
        m_NullCell = AddCell(record, CCellNumber());
    return m_NullCell;
}

std::uint32_t CCellOrder::AddCell(DWORD record, const CCellNumber& number)
{
    const auto cell = static_cast<std::uint32_t>(m_Records.size());
    m_Records.push_back(record);
    if (number.IsNumeric())
        m_NumberCells.push_back({number.m_Number, cell});
    else
        m_TextCells.push_back({MakeNameKey(ReadText(cell).View()), cell});
    return cell;
}

CString CCellOrder::ReadText(std::uint32_t cell) const
{
    const DWORD record = m_Records[cell];
    return IsDeleted(record) ? CString() : FormatValue(m_Column.Get(record));
}

/// Most names are told apart by their keys; only for the others the texts are made.
int CCellOrder::CompareTexts(const CTextCell& left, const CTextCell& right) const
{
    const int order = CompareNameKeys(left.Key, right.Key);
    return order != 0 ? order
                      : StringCompare(ReadText(left.Cell), ReadText(right.Cell), false, true, true);
}

void CCellOrder::RankNumbers()
{
    std::ranges::sort(m_NumberCells, {}, &CNumberCell::Number);
    for (std::size_t index = 0; index < m_NumberCells.size(); ++index)
    {
        if (index > 0 && m_NumberCells[index].Number != m_NumberCells[index - 1].Number)
            ++m_LastPlace;
        m_Places[m_NumberCells[index].Cell] = m_LastPlace;
    }
}

void CCellOrder::RankTexts()
{
    // A merge sort: the order of names may go round in a circle.
    std::ranges::stable_sort(m_TextCells, [this](const CTextCell& left, const CTextCell& right)
                             { return CompareTexts(left, right) < 0; });
    for (std::size_t index = 0; index < m_TextCells.size(); ++index)
    {
        const bool isFirst = index == 0;
        if (isFirst ? !m_NumberCells.empty()
                    : CompareTexts(m_TextCells[index - 1], m_TextCells[index]) != 0)
            ++m_LastPlace;
        m_Places[m_TextCells[index].Cell] = m_LastPlace;
    }
}

void CCellOrder::Rank(bool ascending)
{
    m_Places.resize(GetCellCount());
    RankNumbers();
    RankTexts();
    if (!ascending)
        for (std::uint32_t& place : m_Places)
            place = m_LastPlace - place;
}

} // namespace

void OrderByColumn(std::span<DWORD> records, const CSnapshotStore& store, CColumnNumbers& numbers,
                   bool ascending)
{
    std::ranges::sort(records); // equal rows stand by number
    CCellOrder order(store, numbers, records.size());
    for (const DWORD record : records)
        order.Add(record);
    order.Rank(ascending);

    std::vector<std::uint32_t> starts(order.GetCellCount() + 1, 0);
    for (std::size_t index = 0; index < records.size(); ++index)
        ++starts[order.GetPlace(index) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    const std::vector<DWORD> rising(records.begin(), records.end());
    for (std::size_t index = 0; index < rising.size(); ++index)
        records[starts[order.GetPlace(index)]++] = rising[index];
}

} // namespace utility
