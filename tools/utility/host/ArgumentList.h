#pragma once

namespace utility
{

/// Overwrites the passwords of connect strings among a process's arguments, in place: other users
/// of the machine may read them there for as long as the process runs.
///
///     "DSN=parts;PWD=secret"             "DSN=parts;PWD=***   "
///     "--from=PWD=secret;DSN=parts"      "--from=PWD=***;DSN=parts   "
///
/// To be called once what is needed was copied out.
void HidePasswords(int count, char** arguments);

} // namespace utility
