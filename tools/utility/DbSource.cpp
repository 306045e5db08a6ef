#include "DbSource.h"

#include "database/DBADatabase.h"
#include "frame/AppError.h"
#include "platform/db/ConnectString.h"
#include "platform/db/DBException.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

constexpr char16_t FILE_DRIVER[] = u"SQLite3"; // as the driver's package registers it

} // namespace

// What the driver needs beyond that, the library adds by itself.
CString CDbSource::GetConnect() const
{
    if (!IsFile())
        return m_Text;
    CConnectString connect;
    connect.Append(u"DRIVER", FILE_DRIVER);
    connect.Append(u"Database", m_Text.View());
    return connect.Format();
}

CString CDbSource::GetName() const
{
    return MaskPasswords(m_Text.View());
}

// The driver opens any file, and of one that is no database it just lists no tables.
bool CDbSource::IsReadable(CDBADatabase& database) const
{
    if (!IsFile())
        return true;
    try
    {
        database.ExecuteSQL(u"SELECT 1 FROM sqlite_master WHERE 0");
        return true;
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        CAppError::SetLastError(IDS_PLAIN_TEXT, exception->GetErrorText());
        return false;
    }
}

bool CDbSource::Open(CDBADatabase& database, EDbUse use) const
{
    CFileStatus status;
    if (use == EDbUse::Read && IsFile() && !CFile::GetStatus(m_Text, status))
        return false; // the driver would make an empty one
    return database.Open(nullptr, FALSE, FALSE, GetConnect(), FALSE) && IsReadable(database);
}

} // namespace utility
