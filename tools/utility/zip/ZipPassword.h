#pragma once

#include "platform/base/String.h"

namespace utility
{

class CCommandCall;
struct CCommandOption;

/// --password and --password-file; never on the command line, where others could see it.
CCommandOption ZipPasswordOption();
CCommandOption ZipPasswordFileOption();

/// The password that the options tell, "" for none: asked for unseen, twice for a new one, or the
/// first line of a file. False, and the reason is told, if there is none to be had.
bool ReadZipPassword(const CCommandCall& call, bool isNew, CString& password);

} // namespace utility
