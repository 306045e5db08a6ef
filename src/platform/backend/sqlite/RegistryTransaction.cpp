#include "platform/backend/sqlite/KeyHandle.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/RegistryHive.h"

namespace utility
{

struct CRegistryTransaction::CBackend
{
    CHiveFile* m_File = nullptr; // null once it has ended, or never began
};

CRegistryTransaction::CRegistryTransaction(HKEY root) : m_Backend(std::make_unique<CBackend>())
{
    KeyRecord record;
    if (ResolveKey(root, nullptr, record) != ERROR_SUCCESS)
        return;
    if (record.m_Place.m_File->BeginTransaction() == ERROR_SUCCESS)
        m_Backend->m_File = record.m_Place.m_File;
}

CRegistryTransaction::~CRegistryTransaction()
{
    if (m_Backend->m_File)
        m_Backend->m_File->EndTransaction(false);
}

bool CRegistryTransaction::Commit()
{
    CHiveFile* file = std::exchange(m_Backend->m_File, nullptr);
    return file && file->EndTransaction(true) == ERROR_SUCCESS;
}

} // namespace utility
