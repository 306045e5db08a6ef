#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <span>
#include <string>

namespace utility
{

/// The file that tells the system's manager of a service that we made.
///
/// Results are classic codes.

/// The name of a service's unit, such as "board.service"; empty for what no service may be called.
std::string UnitName(const CString& service);

/// The text of a service that starts with the system where that is wanted. `program` holds the
/// program's path and its arguments, which reach it as they are.
std::string MakeUnitText(const CString& description, std::span<const std::string> program);

/// Whether this user may make services.
DWORD CheckUnitFolder();

/// Whether this user may change the file of a service; 5 for one that others made.
DWORD CheckUnitFile(const std::string& name);

DWORD WriteUnitFile(const std::string& name, const std::string& text);
DWORD DeleteUnitFile(const std::string& name);

DWORD ChangeUnitDescription(const std::string& name, const CString& description);

} // namespace utility
