#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <string_view>

namespace utility
{

/// The files of live windows in the test's runtime folder, seen from outside.
std::filesystem::path LiveWindowsFolder();
std::vector<std::string> LiveWindowsFiles();

/// Where a process, preset the calling one, takes orders: as another program would send them.
class CLiveSocket
{
public:
    explicit CLiveSocket(int process = 0);
    ~CLiveSocket();
    CLiveSocket(const CLiveSocket&) = delete;
    CLiveSocket& operator=(const CLiveSocket&) = delete;

    /// False if there is no room for a quarter of a second, or nobody who takes it.
    bool Send(std::string_view bytes) const { return SendWithin(250'000, bytes); }
    /// Waits for room.
    bool SendAndWait(std::string_view bytes) const { return SendWithin(0, bytes); }

private:
    bool SendWithin(long microseconds, std::string_view bytes) const;

    int m_Socket;
};

} // namespace utility
