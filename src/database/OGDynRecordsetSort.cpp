#include "database/OGDynRecordset.h"
#include "database/OGDynSortInfo.h"
#include "database/ValueOrder.h"
#include "platform/base/collections/PtrList.h"

#include <algorithm>
#include <vector>

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

    const int field = GetFieldIndex(sort->m_FieldName);
    std::vector<CValueOrderKey> keys;
    for (; !IsEOF() && !IsBOF(); MoveNext())
        keys.push_back(MakeValueOrderKey(GetFieldData(field), sort->m_ParseType,
                                         m_SeenRecords.GetAt(m_CurrentMatch)));
    // A merge sort: the order of names may go round in a circle.
    std::stable_sort(keys.begin(), keys.end(),
                     [sort](const CValueOrderKey& left, const CValueOrderKey& right)
                     { return CompareValueOrder(left, right, sort->m_Ascending) < 0; });
    for (std::size_t place = 0; place < keys.size(); ++place)
        m_SeenRecords.SetAt(static_cast<int>(place), keys[place].m_Record);
    MoveFirst();
}

} // namespace utility
