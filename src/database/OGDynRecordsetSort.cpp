#include "database/ColumnFilter.h"
#include "database/ColumnNumbers.h"
#include "database/ColumnOrder.h"
#include "database/OGDynRecordset.h"
#include "database/OGDynSortInfo.h"
#include "platform/base/collections/PtrList.h"

namespace utility
{

/// Each entry would order all rows anew, and equal rows by record number alone: so only the last
/// counts.
const COGDynSortInfo* COGDynRecordset::FindSortKey(const CPtrList& sortList) const
{
    const COGDynSortInfo* last = nullptr;
    for (POSITION position = sortList.GetHeadPosition(); position;)
    {
        const auto* const key = static_cast<const COGDynSortInfo*>(sortList.GetNext(position));
        if (GetFieldIndex(key->m_FieldName) >= 0)
            last = key;
    }
    return last;
}

void COGDynRecordset::SortFilteredRecords(const CPtrList& sortList)
{
    const COGDynSortInfo* const sort = FindSortKey(sortList);
    if (!sort)
        return;
    MoveFirst();
    if (!IsLocalFiltering())
        InitFilteredMove();

    TestAllRows();
    CColumnNumbers& numbers = GetNumbers(GetFieldIndex(sort->m_FieldName), sort->m_ParseType);
    OrderByColumn({m_SeenRecords.GetData(), static_cast<std::size_t>(GetSeenCount())},
                  *GetSnapshot(), numbers, sort->m_Ascending);
    MoveFirst();
}

} // namespace utility
