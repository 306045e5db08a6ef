#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string>
#include <vector>

namespace utility
{

/// A row of the model's table.
struct CModelRow
{
    int m_Id = 0;
    std::u16string m_Kind;
    std::u16string m_Value;
};

/// What a filter of the model asks of a row: kind and value are tested by CDBClientFilter itself.
struct CModelFilter
{
    enum class EField
    {
        None, // there is no filter
        Kind,
        Value,
        Absent
    };

    bool IsMatch(const CModelRow& row) const;

    EField m_Field = EField::None;
    int m_Operator = 0;
    std::u16string m_Text;
    bool m_IsBound = false; // its column was found in some query
};

/// What one sees of a grid's recordset.
struct CGridView
{
    bool m_IsBegin = false;
    bool m_IsEnd = false;
    int m_Id = 0;            // 0 where there is no row
    int m_Count = 0;         // -1 where the driver's row sets decide
    int m_CurrentRecord = 0; // likewise
    bool m_IsFiltering = false;
    bool m_IsCountFinal = false;

    bool operator==(const CGridView&) const = default;
};
void PrintTo(const CGridView& view, std::ostream* stream);

/// A grid's recordset over a plain vector: every step written out the slow way, with what looks
/// like a slip and is kept.
///
///     a set filters from the first Next after its filters were set, and from that row on
///     any other first move shows all rows, until the filters are set anew
///     a Requery of a set that shows all rows does not begin to filter
///     the last row is not known to be the last before a move went behind it
class CGridModel
{
public:
    // The source

    void SetTable(std::vector<CModelRow> rows) { m_Table = std::move(rows); }

    // The set; Move is false where the step is refused

    void Open();
    void Requery();
    void SetFilter(const CModelFilter& filter);
    void ApplyFilter(const CModelFilter& filter);
    bool Move(int rows, WORD fetchType);
    void Sort(int parseType, bool ascending);
    bool FetchAhead(int rows);

    CGridView Look() const;
    int GetCount() const { return static_cast<int>(m_Rows.size()); }

private:
    enum class EState
    {
        Undecided,
        Off,
        On
    };

    void Query();
    void Forget();
    void MakeMove(int rows, WORD fetchType);
    bool IsRefused(int rows, WORD fetchType) const;
    int FindTarget(int rows, WORD fetchType, int count) const;

    // All rows
    void MoveReal(int rows, WORD fetchType);
    void SeeRow(int place);

    // Matching rows
    void StartFiltering();
    void MoveFiltered(int rows, WORD fetchType);
    bool TestNext();
    void TestUpTo(std::int64_t matches);
    void StandOn(int match);
    void StandBefore();
    void StandBehind();
    int GetSeen() const { return static_cast<int>(m_Seen.size()); }

    std::vector<CModelRow> m_Table;
    std::vector<CModelRow> m_Rows; // as queried
    CModelFilter m_Filter;
    EState m_State = EState::Undecided;

    int m_Place = -1;    // among all rows: -1 before them, their count behind them
    int m_SeenCount = 0; // rows that moves have seen, -1 where the driver decides
    bool m_EndSeen = false;

    std::vector<int> m_Seen; // rows that matched
    int m_Match = -1;
    int m_NextTest = 0;
    bool m_AllTested = false;
};

} // namespace utility
