#include "database/DBFieldMap.h"

#include "database/DBFInfo.h"
#include "platform/base/CaseFold.h"

namespace utility
{

CDBFieldMap::CDBFieldMap(const CDBFieldMap& other)
{
    *this = other;
}

CDBFieldMap& CDBFieldMap::operator=(const CDBFieldMap& other)
{
    if (this == &other)
        return *this;
    m_SettingsFile = other.m_SettingsFile;
    m_Section = other.m_Section;
    m_KeyField = other.m_KeyField;
    m_PartNameField = other.m_PartNameField;
    m_TableName = other.m_TableName;
    m_TableVisible = other.m_TableVisible;
    m_TableUnuseable = other.m_TableUnuseable;
    for (const CDBFInfo* field : other.m_Fields)
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
    m_Fields.Add(info);
}

void CDBFieldMap::DeleteField(const CString& name)
{
    const auto found = std::find(m_Fields.begin(), m_Fields.end(), FindField(name));
    if (found == m_Fields.end())
        return;
    delete *found;
    m_Fields.RemoveAt(static_cast<int>(found - m_Fields.begin()));
}

void CDBFieldMap::Empty()
{
    for (const CDBFInfo* field : m_Fields)
        delete field;
    m_Fields.RemoveAll();
}

CDBFInfo* CDBFieldMap::FindField(const CString& name) const
{
    for (CDBFInfo* field : m_Fields)
        if (!name.IsEmpty() && EqualNoCase(field->GetName().View(), name.View()))
            return field;
    return nullptr;
}

CDBFInfo* CDBFieldMap::FindFieldMappedTo(const CString& mapTo) const
{
    for (CDBFInfo* field : m_Fields)
        if (!mapTo.IsEmpty() && EqualNoCase(field->GetMapTo().View(), mapTo.View()))
            return field;
    return nullptr;
}

int CDBFieldMap::GetLoadedCount() const
{
    return static_cast<int>(std::count_if(m_Fields.begin(), m_Fields.end(),
                                          [](const CDBFInfo* field) { return field->GetLoad(); }));
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
