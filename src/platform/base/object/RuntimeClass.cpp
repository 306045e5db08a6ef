#include "platform/base/object/RuntimeClass.h"

#include <cstring>
#include <mutex>
#include <vector>

namespace utility
{

namespace
{

struct CClassTables
{
    std::mutex m_Lock;
    std::vector<std::span<const CRuntimeClass* const>> m_Tables;
};

CClassTables& GetTables()
{
    static CClassTables tables;
    return tables;
}

} // namespace

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    const CRuntimeClass* record = this;
    while (record && record != base)
        record = record->m_pBaseClass;
    return record != nullptr;
}

void CRuntimeClass::AddTable(std::span<const CRuntimeClass* const> classes)
{
    CClassTables& tables = GetTables();
    const std::lock_guard lock(tables.m_Lock);
    tables.m_Tables.push_back(classes);
}

const CRuntimeClass* CRuntimeClass::FromName(const char* name)
{
    CClassTables& tables = GetTables();
    const std::lock_guard lock(tables.m_Lock);
    for (const auto& table : tables.m_Tables)
    {
        for (const CRuntimeClass* record : table)
        {
            if (std::strcmp(record->m_lpszClassName, name) == 0)
                return record;
        }
    }
    return nullptr;
}

} // namespace utility
