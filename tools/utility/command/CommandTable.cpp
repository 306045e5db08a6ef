#include "utility/command/CommandTable.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

using CGroup = std::vector<CCommand> (*)();

constexpr CGroup GROUPS[] = {
    BackupCommands,
    CompletionCommands,   //
    CsvCommands,          //
    DateCommands,         //
    DbBrowseCommands,     //
    DbCheckCommands,      //
    DbCommands,           //
    DbCopyCommands,       //
    DbMapCommands,        //
    DbRulesCommands,      //
    DbTableCommands,      //
    FormCommands,         //
    InstanceCommands,     //
    LengthCommands,       //
    LogCommands,          //
    ManCommands,          //
    MatchCommands,        //
    Md5Commands,          //
    NumberCommands,       //
    PathCommands,         //
    ProfileCommands,      //
    RangeCommands,        //
    RegistryFormCommands, //
    SettingsCommands,     //
    SettingsFileCommands, //
    TextCommands,         //
    XXTeaCommands,        //
    XmlCheckCommands,     //
    XmlCommands,          //
    ZipCommands,          //
};

std::vector<CCommand> CollectCommands()
{
    std::vector<CCommand> table;
    for (const CGroup group : GROUPS)
    {
        for (CCommand& command : group())
            table.push_back(std::move(command));
    }
    std::stable_sort(table.begin(), table.end(),
                     [](const CCommand& left, const CCommand& right)
                     { return std::strcmp(left.m_Group, right.m_Group) < 0; });
    return table;
}

} // namespace

const std::vector<CCommand>& CommandTable()
{
    static const std::vector<CCommand> table = CollectCommands();
    return table;
}

const std::vector<CCommandOption>& GlobalOptions()
{
    static const std::vector<CCommandOption> options = {
        {"json", "", "Print results as JSON, for other programs"},
        {"yes", "", "Answer every question by yes"},
        {"app", "COMPANY/NAME", "Whose settings and log to use; preset: Utility/Utility"},
        {"version", "", "Print the version and stop"},
        {"help", "", "Print what stands here and stop"},
    };
    return options;
}

std::vector<std::string> GroupNames()
{
    std::vector<std::string> names;
    for (const CCommand& command : CommandTable())
    {
        if (names.empty() || names.back() != command.m_Group)
            names.emplace_back(command.m_Group);
    }
    return names;
}

std::vector<const CCommand*> CommandsOfGroup(std::string_view group)
{
    std::vector<const CCommand*> commands;
    for (const CCommand& command : CommandTable())
    {
        if (command.m_Group == group)
            commands.push_back(&command);
    }
    return commands;
}

} // namespace utility
