#include "database/DBFieldMap.h"

#include "database/DBFInfo.h"
#include "platform/base/CaseFold.h"
#include "platform/base/object/InvalidArgException.h"

namespace utility
{

CDBFieldMap::CDBFieldMap() = default;
CDBFieldMap::~CDBFieldMap() = default;

CDBFieldMap::CDBFieldMap(const CDBFieldMap& other)
{
    *this = other;
}

CDBFieldMap& CDBFieldMap::operator=(const CDBFieldMap& other)
{
    if (this == &other)
        return *this;
    m_KeyField = other.m_KeyField;
    m_PartNameField = other.m_PartNameField;
    m_TableName = other.m_TableName;
    m_TableVisible = other.m_TableVisible;
    m_TableUnuseable = other.m_TableUnuseable;
    for (const auto& field : other.m_Fields)
    {
        if (CDBFInfo* own = FindField(field->GetName()))
            *own = *field;
        else
            Add(new CDBFInfo(*field));
    }
    return *this;
}

void CDBFieldMap::Add(CDBFInfo* info)
{
    m_Fields.emplace_back(info);
}

void CDBFieldMap::DeleteField(const CString& name)
{
    const CDBFInfo* wanted = FindField(name);
    std::erase_if(m_Fields,
                  [wanted](const auto& field) { return wanted && field.get() == wanted; });
}

void CDBFieldMap::Empty()
{
    m_Fields.clear();
}

CDBFInfo* CDBFieldMap::FindField(const CString& name) const
{
    for (const auto& field : m_Fields)
        if (!name.IsEmpty() && EqualNoCase(field->GetName().View(), name.View()))
            return field.get();
    return nullptr;
}

CDBFInfo* CDBFieldMap::FindFieldMappedTo(const CString& mapTo) const
{
    for (const auto& field : m_Fields)
        if (!mapTo.IsEmpty() && EqualNoCase(field->GetMapTo().View(), mapTo.View()))
            return field.get();
    return nullptr;
}

CDBFInfo* CDBFieldMap::GetField(int index) const
{
    if (index < 0 || index >= GetCount())
        AfxThrowInvalidArgException();
    return m_Fields[static_cast<std::size_t>(index)].get();
}

int CDBFieldMap::GetLoadedCount() const
{
    return static_cast<int>(std::count_if(m_Fields.begin(), m_Fields.end(),
                                          [](const auto& field) { return field->GetLoad(); }));
}

bool CDBFieldMap::SetKeyField(const CString& name)
{
    m_KeyField = name;
    return true;
}

bool CDBFieldMap::SetPartNameField(const CString& name)
{
    m_PartNameField = name;
    return true;
}

} // namespace utility
