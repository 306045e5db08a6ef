#pragma once

#include "platform/backend/sqlite/HiveCache.h"
#include "platform/backend/sqlite/HiveConnection.h"
#include "platform/backend/sqlite/HiveGeneration.h"
#include "platform/backend/sqlite/HiveSchema.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace utility
{

/// One root's store: its file, its cache, and a connection for each thread that uses it. Any
/// thread.
///
/// Lives as long as the process. Paths and value names are folded.
class CHiveFile
{
public:
    CHiveFile(const std::string& path, bool shared);

    /// ERROR_FILE_NOT_FOUND for a key or value that is not there.
    LONG FindKey(const std::string& path);
    LONG QueryValue(const std::string& path, const std::string& name, DWORD* type, BYTE* data,
                    DWORD* size);

    using CWork = std::function<LONG(CHiveConnection&)>;
    LONG Read(const CWork& work);
    /// One transaction, or part of the open one.
    LONG Change(const CWork& work);

    LONG BeginTransaction();
    LONG EndTransaction(bool keep);

    /// Closes the calling thread's connections to all stores, but those within a transaction.
    static void CloseThreadConnections();

    CHiveCache& GetCache() { return m_Cache; }

private:
    CHiveConnection* Connect(bool change, LONG& code);
    CHiveConnection* OpenConnection(bool change, LONG& code);
    bool IsCurrent(const CHiveConnection& connection, bool change) const;
    bool IsInTransaction() const;
    LONG Finish(CHiveConnection& connection, bool keep);
    LONG Work(bool change, const CWork& work);
    void SetAside(std::uint64_t incarnation);
    std::uint64_t GetIncarnation() const;
    void TellRefusal(UINT textId);

    CHivePlace m_Place;
    CHiveGeneration m_Generation;
    CHiveCache m_Cache;
    std::atomic<std::uint64_t> m_OwnIncarnation = 0;
    std::atomic<bool> m_ToldDamaged = false;
    std::atomic<bool> m_ToldRefusal = false;
};

} // namespace utility
