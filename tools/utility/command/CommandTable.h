#pragma once

#include "utility/command/Command.h"

#include <string_view>

namespace utility
{

// The groups: each stands in a file of its own. One a line, in alphabetical order.
std::vector<CCommand> BackupCommands();
std::vector<CCommand> CompletionCommands();
std::vector<CCommand> CsvCommands();
std::vector<CCommand> DateCommands();
std::vector<CCommand> DbBrowseCommands();
std::vector<CCommand> DbCheckCommands();
std::vector<CCommand> DbCommands();
std::vector<CCommand> DbCopyCommands();
std::vector<CCommand> DbMapCommands();
std::vector<CCommand> DbRulesCommands();
std::vector<CCommand> DbTableCommands();
std::vector<CCommand> FormCommands();
std::vector<CCommand> InstanceCommands();
std::vector<CCommand> LengthCommands();
std::vector<CCommand> LogCommands();
std::vector<CCommand> ManCommands();
std::vector<CCommand> MatchCommands();
std::vector<CCommand> Md5Commands();
std::vector<CCommand> NumberCommands();
std::vector<CCommand> PathCommands();
std::vector<CCommand> ProfileCommands();
std::vector<CCommand> RangeCommands();
std::vector<CCommand> RegistryFormCommands();
std::vector<CCommand> SettingsCommands();
std::vector<CCommand> SettingsFileCommands();
std::vector<CCommand> TextCommands();
std::vector<CCommand> XXTeaCommands();
std::vector<CCommand> XmlCheckCommands();
std::vector<CCommand> XmlCommands();
std::vector<CCommand> ZipCommands();

/// All commands, the groups in alphabetical order and the verbs as their group gives them.
const std::vector<CCommand>& CommandTable();

/// The options that every command takes.
const std::vector<CCommandOption>& GlobalOptions();

/// The names of the groups, each once.
std::vector<std::string> GroupNames();

/// The commands of one group; empty if there is no such group.
std::vector<const CCommand*> CommandsOfGroup(std::string_view group);

} // namespace utility
