#include "database/OGDynRecordset.h"

#include "database/ColumnFilter.h"
#include "database/ColumnNumbers.h"
#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "platform/base/CaseFold.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/db/RecordsetStatus.h"

namespace utility
{

IMPLEMENT_DYNAMIC(COGDynRecordset, CGXDynamicRecordset)

COGDynRecordset::COGDynRecordset(CDatabase* database) : CGXDynamicRecordset(database) {}

COGDynRecordset::~COGDynRecordset() = default;

void COGDynRecordset::SetLocalFilters(CDBClientFilterSet* filters)
{
    ResetFiltering();
    m_Filters.reset(filters);
}

void COGDynRecordset::ApplyLocalFilters(CDBClientFilterSet* filters)
{
    SetLocalFilters(filters);
    if (!IsOpen() || GetODBCFieldCount() == 0)
        return;
    m_FilterState = EFilterState::Off;
    CGXDynamicRecordset::Move(0, SQL_FETCH_FIRST);
    if (!IsEOF() && CheckLocalFilters())
        InitFilteredMove();
}

bool COGDynRecordset::IsFieldFiltered(const CString& name, CDBClientFilter** filter) const
{
    if (!m_Filters)
        return false;
    for (POSITION position = m_Filters->GetHeadPosition(); position;)
    {
        CDBClientFilter* const found = m_Filters->GetNext(position);
        if (!EqualNoCase(found->GetFieldName().View(), name.View()))
            continue;
        if (filter)
            *filter = found;
        return true;
    }
    return false;
}

void COGDynRecordset::Close()
{
    ForgetMatches();
    ForgetColumns();
    CGXDynamicRecordset::Close();
}

BOOL COGDynRecordset::Requery()
{
    if (IsLocalFiltering())
        ForgetMatches();
    ForgetColumns();
    return CGXDynamicRecordset::Requery();
}

/// What is known of the rows may be left over from a connection that ended under the set.
void COGDynRecordset::PreBindFields()
{
    if (IsLocalFiltering())
        ForgetMatches();
    ForgetColumns();
    CGXDynamicRecordset::PreBindFields();
}

std::int32_t COGDynRecordset::GetRecordCount() const
{
    return IsLocalFiltering() ? GetSeenCount() : CGXDynamicRecordset::GetRecordCount();
}

void COGDynRecordset::GetStatus(CRecordsetStatus& status) const
{
    CGXDynamicRecordset::GetStatus(status);
    if (!IsLocalFiltering())
        return;
    status.m_lCurrentRecord = m_CurrentMatch;
    status.m_bRecordCountFinal = m_EndSeen ? TRUE : FALSE;
}

void COGDynRecordset::GetFieldNames(CStringArray& names) const
{
    names.RemoveAll();
    for (int index = 0; index < GetFieldCount(); ++index)
        names.Add(GetFieldInfo(index).m_strName);
}

int COGDynRecordset::GetFieldIndex(const CString& name) const
{
    const CString wanted = u"[" + name + u"]";
    for (int index = 0; index < GetFieldCount(); ++index)
        if (EqualNoCase(GetFieldInfo(index).m_strName.View(), wanted.View()))
            return index;
    return -1;
}

const CGXFieldInfo& COGDynRecordset::GetField(const CString& name) const
{
    return GetFieldInfo(GetFieldIndex(name)); // raises for an absent one
}

void COGDynRecordset::ResetFiltering()
{
    ForgetMatches();
    m_Filters.reset();
}

void COGDynRecordset::ForgetMatches()
{
    m_SeenRecords.RemoveAll();
    m_CurrentMatch = -1;
    m_LastMatch = -1;
    m_NextTest = 0;
    m_EndSeen = false;
    m_FilterState = EFilterState::Undecided;
    m_Tests.clear();
}

void COGDynRecordset::ForgetColumns()
{
    m_Tests.clear();
    m_ColumnNumbers.clear();
}

} // namespace utility
