#include "platform/backend/sqlite/HiveFile.h"

#include "platform/backend/sqlite/HiveRoots.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/UserInterface.h"
#include "resources/StringIds.h"

#include <sqlite3.h>

#include <sys/stat.h>
#include <utility>
#include <vector>

namespace utility
{

namespace
{

using CConnectionSlot = std::pair<const CHiveFile*, std::unique_ptr<CHiveConnection>>;

std::vector<CConnectionSlot>& ThreadSlots()
{
    thread_local std::vector<CConnectionSlot> slots;
    return slots;
}

std::unique_ptr<CHiveConnection>& ThreadSlot(const CHiveFile* file)
{
    for (CConnectionSlot& slot : ThreadSlots())
    {
        if (slot.first == file)
            return slot.second;
    }
    return ThreadSlots().emplace_back(file, nullptr).second;
}

/// A connection from before a fork belongs to the parent: closing it here would touch the parent's
/// files.
void DropConnection(std::unique_ptr<CHiveConnection>& connection)
{
    if (connection->m_Fork == GetForkCount())
        connection.reset();
    else
        static_cast<void>(connection.release());
}

void Tell(UINT textId, const CString& file, const CString& aside)
{
    CString text;
    text.LoadString(textId);
    CBoxRequest box;
    box.m_Text.FormatMessage(text, file, aside);
    box.m_Type = MB_OK | MB_ICONEXCLAMATION;
    GetUserInterface().ShowBox(box);
}

std::uint64_t FileNumber(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

CHiveFile::CHiveFile(const std::string& path, bool shared)
    : m_Place{path, path + "-generation", shared},
      m_Generation(m_Place.m_Gate)
{
}

void CHiveFile::CloseThreadConnections()
{
    for (CConnectionSlot& slot : ThreadSlots())
    {
        if (slot.second && !slot.second->IsInTransaction())
            DropConnection(slot.second);
    }
}

std::uint64_t CHiveFile::GetIncarnation() const
{
    return m_OwnIncarnation.load() + m_Generation.GetIncarnation();
}

bool CHiveFile::IsInTransaction() const
{
    const auto& connection = ThreadSlot(this);
    return connection && connection->IsInTransaction();
}

bool CHiveFile::IsCurrent(const CHiveConnection& connection, bool change) const
{
    return connection.m_Fork == GetForkCount() && connection.m_Incarnation == GetIncarnation() &&
           (!change || connection.m_FileNumber == FileNumber(m_Place.m_Path));
}

CHiveConnection* CHiveFile::Connect(bool change, LONG& code)
{
    code = ERROR_SUCCESS;
    auto& connection = ThreadSlot(this);
    if (connection && (connection->IsInTransaction() || IsCurrent(*connection, change)))
        return connection.get();
    if (connection)
        DropConnection(connection);
    return OpenConnection(change, code);
}

CHiveConnection* CHiveFile::OpenConnection(bool change, LONG& code)
{
    bool newer = false;
    for (int attempt = 0; attempt < 2; ++attempt)
    {
        const bool mapped = CanShareMemory(m_Place);
        if (mapped)
            m_Generation.Map(false, 0);
        const std::uint64_t incarnation = GetIncarnation();
        sqlite3* database = nullptr;
        const int result = OpenHive(m_Place, change, database);
        if (result == SQLITE_OK)
        {
            if (mapped)
                m_Generation.Map(true, m_Place.GetFileMode());
            auto& connection = ThreadSlot(this);
            connection = std::make_unique<CHiveConnection>(database, m_Generation);
            connection->m_Incarnation = incarnation;
            connection->m_Fork = GetForkCount();
            connection->m_FileNumber = FileNumber(m_Place.m_Path);
            return connection.get();
        }
        code = change ? ERROR_ACCESS_DENIED : ERROR_FILE_NOT_FOUND;
        newer = result == SQLITE_MISMATCH;
        if (result != SQLITE_CORRUPT && result != SQLITE_NOTADB)
            break;
        SetAside(incarnation);
    }
    if (newer)
        TellRefusal(IDS_SETTINGS_NEWER);
    else if (change)
        TellRefusal(IDS_SETTINGS_READ_ONLY);
    return nullptr;
}

void CHiveFile::SetAside(std::uint64_t incarnation)
{
    std::string aside;
    {
        const CHiveGate gate(m_Place.m_Gate, m_Place.GetFileMode());
        if (gate.HasTimedOut() || GetIncarnation() != incarnation)
            return; // another process or thread was first
        if (!SetHiveAside(m_Place, aside))
            return;
        if (m_Generation.IsWritable())
            m_Generation.BeginIncarnation();
        else
            ++m_OwnIncarnation;
    }
    if (!m_ToldDamaged.exchange(true))
        Tell(IDS_SETTINGS_DAMAGED, FromUtf8(m_Place.m_Path), FromUtf8(aside));
}

void CHiveFile::TellRefusal(UINT textId)
{
    // That the machine's store is for administrators is no news to anybody.
    if (!m_Place.m_Shared && !m_ToldRefusal.exchange(true))
        Tell(textId, FromUtf8(m_Place.m_Path), CString());
}

LONG CHiveFile::FindKey(const std::string& path)
{
    const std::uint64_t generation = IsInTransaction() ? 0 : m_Generation.Get();
    if (generation != 0)
    {
        const CHiveCache::EFound found = m_Cache.FindKey(path, generation);
        if (found != CHiveCache::EFound::Unknown)
            return found == CHiveCache::EFound::There ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    }
    bool there = false;
    const LONG code =
        Read([&](CHiveConnection& connection) { return connection.FindKey(path, there); });
    if (code != ERROR_SUCCESS)
        return code;
    if (generation != 0 && m_Generation.Get() == generation)
        m_Cache.StoreKey(path, there, generation);
    return there ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

LONG CHiveFile::QueryValue(const std::string& path, const std::string& name, DWORD* type,
                           BYTE* data, DWORD* size)
{
    const std::uint64_t generation = IsInTransaction() ? 0 : m_Generation.Get();
    LONG code = ERROR_FILE_NOT_FOUND;
    if (generation != 0)
    {
        const auto take = [&](const CHiveValue& value)
        {
            code = DeliverValue(value, type, data, size);
        };
        if (m_Cache.FindValue(path, name, generation, take) != CHiveCache::EFound::Unknown)
            return code;
    }
    std::optional<CHiveValue> value;
    code =
        Read([&](CHiveConnection& connection) { return connection.FindValue(path, name, value); });
    if (code != ERROR_SUCCESS)
        return code;
    if (generation != 0 && m_Generation.Get() == generation)
        m_Cache.StoreValue(path, name, value, generation);
    return value ? DeliverValue(*value, type, data, size) : ERROR_FILE_NOT_FOUND;
}

LONG CHiveFile::Read(const CWork& work)
{
    return Work(false, work);
}

LONG CHiveFile::Change(const CWork& work)
{
    return Work(true,
                [this, &work](CHiveConnection& connection)
                {
                    LONG code = connection.Begin();
                    if (code != ERROR_SUCCESS)
                        return code;
                    code = work(connection);
                    // A refused change within a guard's scope changed nothing; the guard decides
                    // over the rest.
                    const LONG ended =
                        Finish(connection, code == ERROR_SUCCESS || connection.IsNested());
                    return code == ERROR_SUCCESS ? ended : code;
                });
}

LONG CHiveFile::Work(bool change, const CWork& work)
{
    LONG code = ERROR_SUCCESS;
    for (int attempt = 0; attempt < 2; ++attempt)
    {
        CHiveConnection* connection = Connect(change, code);
        if (!connection)
            break;
        code = work(*connection);
        if (!connection->IsDamaged() || connection->IsInTransaction())
            break;
        const std::uint64_t incarnation = connection->m_Incarnation;
        DropConnection(ThreadSlot(this));
        SetAside(incarnation);
    }
    const auto& connection = ThreadSlot(this);
    if (change && connection && connection->IsReadOnly())
        TellRefusal(IDS_SETTINGS_READ_ONLY);
    return code;
}

LONG CHiveFile::Finish(CHiveConnection& connection, bool keep)
{
    const LONG code = connection.End(keep);
    if (!connection.IsInTransaction())
    {
        const CHiveConnection::CCommit commit = connection.TakeCommit();
        m_Cache.Carry(commit.m_Changes, commit.m_Before, commit.m_After);
    }
    return code;
}

LONG CHiveFile::BeginTransaction()
{
    return Work(true, [](CHiveConnection& connection) { return connection.Begin(); });
}

LONG CHiveFile::EndTransaction(bool keep)
{
    return Finish(*ThreadSlot(this), keep);
}

} // namespace utility
