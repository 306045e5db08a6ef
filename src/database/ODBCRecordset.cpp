#include "database/ODBCRecordset.h"

#include "database/ODBCRecordsetException.h"
#include "platform/base/object/InvalidArgException.h"
#include "resources/StringIds.h"

#include <cassert>

namespace utility
{

IMPLEMENT_DYNAMIC(CODBCRecordset, CRecordset)

namespace
{

// The number of fields while they are unknown: not 0, so that the set counts as one with fields.
constexpr int FIELDS_UNKNOWN = 9999;

// What a wrong index gives where nothing is thrown: empty again at each call.
CDBField& EmptyField()
{
    static thread_local CDBField field;
    field = CDBField();
    return field;
}

CString IndexText(int index)
{
    CString text;
    text.Format(u"%d", index);
    return text;
}

} // namespace

CODBCRecordset::CODBCRecordset(CDatabase* database) : CRecordset(database) {}

CODBCRecordset::~CODBCRecordset()
{
    if (m_bResetOnClose && IsOpen())
        CODBCRecordset::Close();
}

BOOL CODBCRecordset::Open(UINT openType, LPCWSTR sql, DWORD options)
{
    // A derived class with declared fields knows its columns.
    return m_nFields != 0 ? CRecordset::Open(openType, sql, options) : Open(sql, openType, options);
}

BOOL CODBCRecordset::Open(LPCWSTR sql, UINT openType, DWORD options)
{
    m_nFields = FIELDS_UNKNOWN;
    m_bNeedLoad = true;
    const BOOL opened = CRecordset::Open(openType, sql, options);
    if (!opened && m_bThrowOnError)
    {
        const CString own = GetDefaultSQL();
        ThrowODBCRecordsetException(IDS_DATABASE_OPEN_FAILED, own.IsEmpty() ? CString(sql) : own);
    }
    return opened;
}

void CODBCRecordset::Close()
{
    CRecordset::Close();
    if (m_bResetOnClose)
        ResetFields();
}

BOOL CODBCRecordset::Requery()
{
    const BOOL done = CRecordset::Requery();
    if (!done && m_bThrowOnError)
    {
        const CString own = GetDefaultSQL();
        ThrowODBCRecordsetException(IDS_DATABASE_OPEN_FAILED, own.IsEmpty() ? GetSQL() : own);
    }
    return done;
}

CDBField& CODBCRecordset::Field(int index)
{
    if (index >= 0 && index < m_AllocatedFields && index < m_nFields)
        return m_Fields[static_cast<std::size_t>(index)];
    if (m_bThrowOnError)
        ThrowODBCRecordsetException(IDS_BAD_DATABASE_FIELD, IndexText(index));
    assert(!"no such column");
    return EmptyField();
}

CDBField& CODBCRecordset::Param(int index)
{
    if (index >= 0 && index < GetParamCount())
        return *m_Params[static_cast<std::size_t>(index)];
    if (m_bThrowOnError)
        ThrowODBCRecordsetException(IDS_BAD_DATABASE_FIELD, IndexText(index));
    AfxThrowInvalidArgException();
}

CDBField& CODBCRecordset::Param(LPCWSTR name)
{
    const int index = GetParamID(name);
    if (index >= 0)
        return Param(index);
    auto param = std::make_unique<CDBField>();
    param->m_strName = name;
    param->m_bParam = true;
    m_Params.push_back(std::move(param));
    ++m_nParams;
    return *m_Params.back();
}

int CODBCRecordset::GetParamID(const CString& name) const
{
    for (std::size_t index = 0; index < m_Params.size(); ++index)
        if (m_Params[index]->GetName() == name)
            return static_cast<int>(index);
    return -1;
}

void CODBCRecordset::SetBinary(LPCWSTR name, HGLOBAL data, DWORD size)
{
    const int index = GetFieldID(name);
    if (!Field(index).SetBinary(data, size))
        return;
    Field(index).m_NullState = 0;
    SetFieldNull(static_cast<DWORD>(index), false);
    SetFieldDirty(static_cast<DWORD>(index), true);
}

} // namespace utility
