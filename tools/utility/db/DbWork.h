#pragma once

#include "utility/command/Command.h"
#include "utility/db/DbSource.h"

#include <functional>

namespace utility
{

/// --password-file: the password of the command's one source, or of its first.
CCommandOption PasswordFileOption();

/// --into: the source that a command fills, with its password.
std::vector<CCommandOption> IntoOptions();
CDbSource SourceToFill(const CCommandCall& call);

/// --from: the source that a command reads, with its password; a command's other options follow.
std::vector<CCommandOption> FromOptions(const std::vector<CCommandOption>& more = {});
CDbSource SourceToRead(const CCommandCall& call);

/// Opens the source, does the work, and words what the source refuses; the result for the shell.
int RunOn(const CDbSource& source, EDbUse use,
          const std::function<int(CDBADatabase& database)>& work);

} // namespace utility
