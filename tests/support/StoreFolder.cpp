#include "support/StoreFolder.h"

#include "platform/system/RegistryHive.h"

#include <stdlib.h>

namespace utility
{

namespace
{

constexpr char VARIABLE[] = "UTILITY_SETTINGS_DIR";

} // namespace

CStoreFolder::CStoreFolder()
{
    const char* before = getenv(VARIABLE);
    m_Before = before ? before : "";
    setenv(VARIABLE, m_Folder.GetNativePath().c_str(), 1);
    ReopenRegistry();
}

CStoreFolder::~CStoreFolder()
{
    setenv(VARIABLE, m_Before.c_str(), 1);
    ReopenRegistry();
}

} // namespace utility
