#pragma once

#include "utility/command/Command.h"

namespace utility
{

/// What the words of a command line come to: a command to run, or a result already told.
struct CCommandLine
{
    const CCommand* m_Command = nullptr; // null: nothing is left to run
    CCommandCall m_Call;
    int m_Result = RESULT_OK;
};

/// Reads the words behind the program's name. Help and version are printed here; a wrong word is
/// told on the error output with the word that may have been meant.
///
/// `--` ends the options, for arguments that begin with a dash; a dash before a digit needs none.
CCommandLine ReadCommandLine(const std::vector<std::string>& words);

/// The same for a command already chosen: the words without its names.
CCommandLine ReadCommand(const CCommand& command, const std::vector<std::string>& words);

} // namespace utility
