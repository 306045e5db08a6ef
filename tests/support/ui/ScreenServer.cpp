#include "support/ui/ScreenServer.h"

#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr int START_LIMIT = 60000; // milliseconds, for a machine with much else to do

} // namespace

/// Both tell by a pipe that they are ready: the screen its number, the manager that it has begun.
CScreenServer::CScreenServer()
{
    const std::string folder = m_Folder.GetNativePath().string();
    const std::string log = folder + "/log";
    for (const char* pipe : {"/number", "/managed"})
        mkfifo((folder + pipe).c_str(), 0600);

    const std::string screen =
        "exec Xvfb -displayfd 3 -screen 0 1280x960x24 -nolisten tcp 3>'" + folder + "/number'";
    m_Server = std::make_unique<CServerProcess>(CArguments{"sh", "-c", screen}, nullptr, log);
    m_Display = ":" + HearFrom("number");

    const std::string manager = "exec env DISPLAY=" + m_Display +
                                " openbox --startup \"sh -c 'echo 1 >" + folder + "/managed'\"";
    m_Manager = std::make_unique<CServerProcess>(CArguments{"sh", "-c", manager}, nullptr, log);
    HearFrom("managed");
}

/// The first line that comes through a pipe of the folder.
std::string CScreenServer::HearFrom(const char* pipe)
{
    const std::string path = (m_Folder.GetNativePath() / pipe).string();
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    std::string line;
    char letter = 0;
    pollfd told = {file, POLLIN, 0};
    while (poll(&told, 1, START_LIMIT) > 0 && read(file, &letter, 1) == 1 && letter != '\n')
        line.push_back(letter);
    close(file);
    if (line.empty())
        throw std::runtime_error("Xvfb or openbox does not start: " + m_Server->ReadLog());
    return line;
}

} // namespace utility
