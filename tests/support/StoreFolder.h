#pragma once

#include "support/TemporaryFolder.h"

#include <string>

namespace utility
{

/// A settings store of a test's own, in an empty folder; the program's is in force again
/// afterwards.
class CStoreFolder
{
public:
    CStoreFolder();
    ~CStoreFolder();
    CStoreFolder(const CStoreFolder&) = delete;
    CStoreFolder& operator=(const CStoreFolder&) = delete;

    const CTemporaryFolder& GetFolder() const { return m_Folder; }

private:
    CTemporaryFolder m_Folder;
    std::string m_Before;
};

} // namespace utility
