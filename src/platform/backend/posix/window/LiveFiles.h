#pragma once

#include "platform/system/window/LiveEntry.h"

#include <string>
#include <string_view>

namespace utility
{

/// The files of live programs, in native form: `windows/4711-8812345.entry` and its kin below the
/// runtime folder.

constexpr std::string_view ENTRY_EXTENSION = ".entry";
constexpr std::string_view SOCKET_EXTENSION = ".socket";

/// The folder, made as needed; empty, with the last error, if there can be none.
std::string GetLiveFolder();

std::string LiveFileName(const CProcessStamp& process, std::string_view extension);

/// False, and `process` keeps its preset, for a name that no live program has.
bool ParseLiveFileName(std::string_view name, CProcessStamp& process);

/// False for one that has ended, even if nobody has taken note of its end yet.
bool IsAlive(const CProcessStamp& process);

} // namespace utility
