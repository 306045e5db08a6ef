#pragma once

#include "platform/system/window/UserInterface.h"

#include <memory>
#include <optional>

namespace utility
{

/// Whose settings and log a command works with.
struct CAppName
{
    CString m_Company;
    CString m_Name;
};

/// Reads "COMPANY/NAME"; none for any other text.
std::optional<CAppName> ReadAppName(const CString& text);

/// What the library asks of its host program, for the length of one command.
///
/// Questions and progress go to the error output. Without a terminal there nobody is asked: a
/// question is answered so that nothing changes, or by yes with --yes, and a line tells so.
class CHost
{
public:
    CHost(const CAppName& app, bool saysYes);
    ~CHost();
    CHost(const CHost&) = delete;
    CHost& operator=(const CHost&) = delete;

    /// Begins the log anew if it is switched on. For the tool's own log alone: another program's is
    /// that program's to begin.
    static void StartLog();

private:
    std::unique_ptr<IUserInterface> m_UserInterface;
};

} // namespace utility
