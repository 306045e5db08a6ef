#include "platform/db/GXDynamicRecordset.h"

#include "platform/base/object/InvalidArgException.h"
#include "platform/db/ODBCFieldInfo.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CGXDynamicRecordset, CRecordset)

CGXDynamicRecordset::CGXDynamicRecordset(CDatabase* database) : CRecordset(database) {}

void CGXDynamicRecordset::PreBindFields()
{
    m_FieldInfos.clear();
    for (short index = 0; index < GetODBCFieldCount(); ++index)
    {
        CODBCFieldInfo column;
        GetODBCFieldInfo(index, column);
        CGXFieldInfo info;
        info.m_strName = u"[" + column.m_strName + u"]";
        info.m_nSQLType = column.m_nSQLType;
        m_FieldInfos.push_back(info);
    }
}

const CGXFieldInfo& CGXDynamicRecordset::GetFieldInfo(int index) const
{
    if (index < 0 || index >= GetFieldCount())
        AfxThrowInvalidArgException();
    return m_FieldInfos[static_cast<std::size_t>(index)];
}

CString CGXDynamicRecordset::GetFieldData(int index) const
{
    if (index < 0 || index >= GetFieldCount())
        AfxThrowInvalidArgException();
    return GetColumnText(static_cast<short>(index));
}

} // namespace utility
