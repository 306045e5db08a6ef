#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/db/Recordset.h"

#include <vector>

namespace utility
{

/// What a CGXDynamicRecordset tells of a column.
struct CGXFieldInfo
{
    CString m_strName; // "[%s]" of the column's name
    short m_nSQLType = 0;
};

/// A recordset that describes its columns itself and needs no declared fields; each row is read as
/// text.
///
/// The descriptions stand from PreBindFields on, so they are there before the first row is fetched.
class UTILITY_CORE_API CGXDynamicRecordset : public CRecordset
{
    DECLARE_DYNAMIC(CGXDynamicRecordset)

public:
    explicit CGXDynamicRecordset(CDatabase* database = nullptr);

    /// The statement of an Open that is given none.
    void SetSQL(const CString& sql) { m_strDefaultSQL = sql; }
    CString GetDefaultSQL() override { return m_strDefaultSQL; }

    void PreBindFields() override;

    int GetFieldCount() const { return static_cast<int>(m_FieldInfos.size()); }

    /// A wrong index raises CInvalidArgException.
    const CGXFieldInfo& GetFieldInfo(int index) const;

    /// The current row's value as the grid shows it: NULL empty, numbers in the shortest plain
    /// digits without exponent, dates in the locale's form, bytes as they are. A wrong index raises
    /// CInvalidArgException.
    CString GetFieldData(int index) const;

private:
    CString m_strDefaultSQL;
    std::vector<CGXFieldInfo> m_FieldInfos;
};

} // namespace utility
