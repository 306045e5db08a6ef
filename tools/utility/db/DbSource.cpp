#include "utility/db/DbSource.h"

#include "database/DBADatabase.h"
#include "frame/AppError.h"
#include "platform/base/Encoding.h"
#include "platform/db/ConnectString.h"
#include "platform/db/DBException.h"
#include "platform/system/Terminal.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include "utility/host/PasswordFile.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr char16_t FILE_DRIVER[] = u"SQLite3"; // as the driver's package registers it

CString FolderOf(const CString& file)
{
    const int slash = file.ReverseFind(u'/');
    return slash < 0 ? CString(u".") : file.Left(std::max(slash, 1));
}

bool Refuse(const CString& reason)
{
    CAppError::SetLastError(IDS_PLAIN_TEXT, reason);
    return false;
}

bool HasPassword(const CString& connect)
{
    const CConnectString keys(connect.View());
    return keys.Has(u"PWD") || keys.Has(u"PASSWORD");
}

CString WithPassword(const CString& connect, const CString& password)
{
    CConnectString keys(connect.View());
    keys.Append(u"PWD", password.View());
    return keys.Format();
}

/// Whether a connection that was refused is refused for want of access. It is tried once more, as
/// the first refusal left words only.
bool WantsPassword(const CString& connect)
{
    try
    {
        CDatabase().Open(nullptr, FALSE, FALSE, connect);
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        return exception->m_Failure == EDBFailure::NoAccess;
    }
    return false;
}

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
    return m_Text.IsEmpty() ? CString(u"''") : MaskPasswords(m_Text.View());
}

CString CDbSource::GetFullName() const
{
    if (!IsFile())
        return GetName();
    return NativePath(GetFullPathNameW(ClassicPath(ToUtf8(m_Text.View()))));
}

CString CDbSource::GetMapFile() const
{
    if (!IsFile() || m_Text.IsEmpty())
        return CString();
    const int slash = m_Text.ReverseFind(u'/');
    const int point = m_Text.ReverseFind(u'.');
    return (point > slash + 1 ? m_Text.Left(point) : m_Text) + u".map.xml";
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
        return Refuse(exception->GetErrorText());
    }
}

/// Says in the system's words what keeps a file from being opened; the driver knows no reasons.
bool CDbSource::IsFileOpenable(EDbUse use) const
{
    CFileStatus status;
    if (use == EDbUse::Fill && !CFile::GetStatus(m_Text, status))
        return CFile::GetStatus(FolderOf(m_Text), status) != 0;
    if (CFile::GetStatus(m_Text, status) && status.IsDirectory())
        return Refuse(u"is a folder");
    try
    {
        CFile(m_Text, CFile::modeRead | CFile::shareDenyNone).Close();
        return true;
    }
    catch (CFileException* error)
    {
        error->Delete(); // the words are recorded
        return false;
    }
}

bool CDbSource::OpenFile(CDBADatabase& database, EDbUse use) const
{
    if (!m_PasswordFile.IsEmpty())
        return Refuse(u"a SQLite file has no password");
    if (!IsFileOpenable(use))
        return false; // for reading the driver would make an empty one
    return database.Open(nullptr, FALSE, FALSE, GetConnect(), FALSE) && IsReadable(database);
}

/// Without a password the server is asked first: many let their own users in.
bool CDbSource::OpenServer(CDBADatabase& database) const
{
    const CString connect = GetConnect();
    if (HasPassword(connect))
    {
        if (!m_PasswordFile.IsEmpty())
            return Refuse(u"it has a password of its own, so --password-file is one too many");
        PrintError(u"warning: a password on the command line may be seen by other users before it "
                   u"is hidden; leave it out to be asked, or see --password-file");
        return database.Open(nullptr, FALSE, FALSE, connect, FALSE);
    }
    CString password;
    if (!m_PasswordFile.IsEmpty())
        return ReadPasswordFile(m_PasswordFile, password) &&
               database.Open(nullptr, FALSE, FALSE, WithPassword(connect, password), FALSE);
    if (database.Open(nullptr, FALSE, FALSE, connect, FALSE))
        return true;
    if (!WantsPassword(connect))
        return false;
    if (!ReadSecret(u"Password for " + GetName() + u": ", password))
        return Refuse(CAppError::GetLastErrorString() +
                      u"; no password was given, without a terminal see --password-file");
    return database.Open(nullptr, FALSE, FALSE, WithPassword(connect, password), FALSE);
}

bool CDbSource::Open(CDBADatabase& database, EDbUse use) const
{
    return IsFile() ? OpenFile(database, use) : OpenServer(database);
}

} // namespace utility
