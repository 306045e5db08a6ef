#pragma once

#include "platform/base/String.h"

namespace utility
{

class CDBADatabase;

/// What a command does with its database.
enum class EDbUse
{
    Read, // a file that is not there is refused, and none is made
    Fill  // a file that is not there is made
};

/// The database that a command works on, as the user names it: a SQLite file, or any ODBC connect
/// string (it has a "=").
///
/// The password comes from the string, which draws a warning, from the first line of a file or,
/// where the server turns the connection down without one, from the user's keys, unseen.
class CDbSource
{
public:
    explicit CDbSource(const CString& text, const CString& passwordFile = CString())
        : m_Text(text),
          m_PasswordFile(passwordFile)
    {
    }

    /// For messages: a password is ***.
    CString GetName() const;

    /// The same for files with the whole path, as a name to keep things by.
    CString GetFullName() const;

    /// Where the field maps of a file's tables stand, beside it: parts.map.xml for parts.db. Empty
    /// for any other source.
    CString GetMapFile() const;

    /// False with the last error set, in the driver's words or ours.
    [[nodiscard]] bool Open(CDBADatabase& database, EDbUse use) const;

private:
    bool IsFile() const { return m_Text.Find(u'=') < 0; }
    CString GetConnect() const;
    bool OpenFile(CDBADatabase& database, EDbUse use) const;
    bool OpenServer(CDBADatabase& database) const;
    bool IsFileOpenable(EDbUse use) const;
    bool IsReadable(CDBADatabase& database) const;

    CString m_Text;
    CString m_PasswordFile; // "" for none
};

} // namespace utility
