#pragma once

#include "support/ServerProcess.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <string>

namespace utility
{

/// A screen of a test's own, without glass, with a window manager on it; gone with this object.
///
/// Throws std::runtime_error if the programs "Xvfb" and "openbox" do not start.
class CScreenServer
{
public:
    CScreenServer();

    /// Such as ":7".
    const std::string& GetDisplay() const { return m_Display; }
    /// The screen goes away at once.
    void Kill() { m_Server->Kill(); }

private:
    std::string HearFrom(const char* pipe);

    CTemporaryFolder m_Folder;
    std::unique_ptr<CServerProcess> m_Server;
    std::unique_ptr<CServerProcess> m_Manager;
    std::string m_Display;
};

} // namespace utility
