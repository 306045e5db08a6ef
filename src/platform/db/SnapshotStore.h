#pragma once

#include "platform/db/DbValue.h"
#include "platform/db/PagedArray.h"
#include "platform/db/TextColumn.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace utility
{

/// One column of a snapshot: its values by row, each kind in its own width.
class CSnapshotColumn
{
public:
    explicit CSnapshotColumn(EValueKind kind) : m_Kind(kind) {}

    void AddNull();

    /// A value that the driver could not give: NULL, with the mark of what did not come whole.
    void AddUnreadable();
    void AddInteger(std::int64_t value) { m_Integers.Add(value); }
    void AddReal(double value) { m_Reals.Add(value); }
    void AddDate(const TIMESTAMP_STRUCT& value) { m_Dates.Add(value); }
    void AddBytes(std::string_view bytes, bool isCut);

    CDbValue Get(std::size_t row) const;

    /// The row's value is neither NULL nor was changed here, so it is known by its number.
    bool HasNumber(std::size_t row) const
    {
        return !IsNull(row) && (m_Replaced.empty() || !m_Replaced.contains(row));
    }

    /// Rows of one number hold the same value: repeats of texts are kept once, values of a fixed
    /// width are numbered by row. Numbers begin at 0 and grow with the rows.
    std::size_t GetNumber(std::size_t row) const { return IsText() ? m_Texts.GetNumber(row) : row; }

    /// The value of a number that some row has.
    CDbValue GetValue(std::size_t number) const;

    /// For a row changed here.
    void Replace(std::size_t row, const CDbValue& value);

private:
    struct CReplacement
    {
        CDbValue Value;
        std::string Bytes;
    };
    std::size_t GetCount() const;
    void ReadValue(std::size_t number, CDbValue& value) const;
    bool IsText() const { return m_Kind == EValueKind::Text || m_Kind == EValueKind::Binary; }
    bool IsNull(std::size_t row) const
    {
        return m_Kind == EValueKind::None || (row < m_Nulls.size() && m_Nulls[row]);
    }

    EValueKind m_Kind;
    std::vector<bool> m_Nulls; // up to the last NULL
    CPagedArray<std::int64_t> m_Integers;
    CPagedArray<double> m_Reals;
    CPagedArray<TIMESTAMP_STRUCT> m_Dates;
    CTextColumn m_Texts;
    std::unordered_set<std::size_t> m_CutRows; // few
    std::unordered_map<std::size_t, CReplacement> m_Replaced;
};

/// The rows of a query fetched so far, any of them reached at once.
class CSnapshotStore
{
public:
    explicit CSnapshotStore(const std::vector<EValueKind>& kinds);

    std::size_t GetRowCount() const { return m_RowCount; }
    std::size_t GetColumnCount() const { return m_Columns.size(); }

    /// Whoever adds rows adds `count` values to each column, then calls AddRows.
    CSnapshotColumn& Column(std::size_t column) { return m_Columns[column]; }
    const CSnapshotColumn& Column(std::size_t column) const { return m_Columns[column]; }
    void AddRows(std::size_t count) { m_RowCount += count; }

    CDbValue Get(std::size_t row, std::size_t column) const { return m_Columns[column].Get(row); }
    bool HasCutText(std::size_t row) const;

    void MarkDeleted(std::size_t row) { m_Deleted.insert(row); }
    bool IsDeleted(std::size_t row) const { return !m_Deleted.empty() && m_Deleted.contains(row); }

private:
    std::vector<CSnapshotColumn> m_Columns;
    std::size_t m_RowCount = 0;
    std::unordered_set<std::size_t> m_Deleted;
};

} // namespace utility
