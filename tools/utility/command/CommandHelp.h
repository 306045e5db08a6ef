#pragma once

#include "utility/command/Command.h"

namespace utility
{

// The help of each level, made from the command table. UTF-8, whole lines, at most 80 columns.

std::string ProgramHelp();
std::string GroupHelp(const std::string& group);
std::string CommandHelp(const CCommand& command);

/// "utility match [OPTIONS] PATTERN [NAME...]"
std::string CommandUsage(const CCommand& command);

/// "match", "settings get"
std::string CommandTitle(const CCommand& command);

/// "--limit COUNT", "--json"
std::string OptionForm(const CCommandOption& option);

/// "[NAME...]"
std::string ArgumentForm(const CCommandArgument& argument);

/// The help of an option or argument with its choices named.
std::string HelpWithChoices(const char* help, const std::vector<const char*>& choices);

} // namespace utility
