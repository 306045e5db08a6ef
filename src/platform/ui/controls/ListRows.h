#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstddef>
#include <vector>

namespace utility
{

/// One row of a list or combo.
struct CListRow
{
    CString m_Text;
    LPARAM m_Data = 0;
    int m_Check = 0; // BST_...
    bool m_IsEnabled = true;
    int m_Height = 0; // 0: as all
};

/// The rows of a list or combo, without a window.
class UTILITY_UI_API CListRows
{
public:
    int GetCount() const { return static_cast<int>(m_Rows.size()); }
    bool Has(int row) const { return row >= 0 && row < GetCount(); }
    CListRow& Get(int row) { return m_Rows[static_cast<std::size_t>(row)]; }
    const CListRow& Get(int row) const { return m_Rows[static_cast<std::size_t>(row)]; }

    /// Where a text goes in sorted rows: behind those that are equal, case-blind.
    int FindPlace(const CString& text) const;
    /// `row` is there or the count.
    void Insert(int row, const CString& text);
    void Delete(int row);
    void Clear() { m_Rows.clear(); }

private:
    std::vector<CListRow> m_Rows;
};

/// Whether a text begins with another, case-blind.
UTILITY_UI_API bool StartsWithNoCase(const CString& text, const CString& start);

/// The first row behind `after`, once around, that `isFound` accepts; -1 if none does.
template <typename TTest>
int FindRowAround(int count, int after, const TTest& isFound)
{
    const int start = after < -1 || after >= count ? -1 : after;
    for (int step = 1; step <= count; ++step)
    {
        const int row = (start + step) % count;
        if (isFound(row))
            return row;
    }
    return -1;
}

} // namespace utility
