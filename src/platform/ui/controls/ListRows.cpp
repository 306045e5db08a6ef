#include "platform/ui/controls/ListRows.h"

#include <algorithm>

namespace utility
{

int CListRows::FindPlace(const CString& text) const
{
    const auto place = std::upper_bound(m_Rows.begin(), m_Rows.end(), text,
                                        [](const CString& left, const CListRow& right)
                                        { return left.CompareNoCase(right.m_Text) < 0; });
    return static_cast<int>(place - m_Rows.begin());
}

void CListRows::Insert(int row, const CString& text)
{
    m_Rows.insert(m_Rows.begin() + row, CListRow{text});
}

void CListRows::Delete(int row)
{
    m_Rows.erase(m_Rows.begin() + row);
}

bool StartsWithNoCase(const CString& text, const CString& start)
{
    return text.GetLength() >= start.GetLength() &&
           text.Left(start.GetLength()).CompareNoCase(start) == 0;
}

} // namespace utility
