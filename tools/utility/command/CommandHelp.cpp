#include "utility/command/CommandHelp.h"

#include "utility/command/CommandTable.h"

#include <algorithm>
#include <sstream>

namespace utility
{

namespace
{

constexpr std::size_t LINE_WIDTH = 80;
constexpr std::size_t MAX_TERM_WIDTH = 26;

using CTerms = std::vector<std::pair<std::string, std::string>>;

void AppendWord(std::string& text, std::size_t& column, const std::string& word, std::size_t indent)
{
    if (column > 0 && column + 1 + word.size() > LINE_WIDTH - indent)
    {
        text += '\n';
        column = 0;
    }
    text += column == 0 ? std::string(indent, ' ') : " ";
    text += word;
    column += word.size() + (column == 0 ? 0 : 1);
}

/// A text broken at blanks, each line behind `indent` blanks. What begins with a blank stands on a
/// line of its own as it is, and an empty line ends a paragraph.
std::string Wrapped(const std::string& text, std::size_t indent)
{
    std::string result;
    std::size_t column = 0; // 0: the line is empty yet
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
    {
        std::istringstream words(line);
        if (!line.empty() && line.front() != ' ')
        {
            for (std::string word; words >> word;)
                AppendWord(result, column, word, indent);
            continue;
        }
        result += column > 0 ? "\n" : "";
        result += (line.empty() ? line : std::string(indent, ' ') + line) + "\n";
        column = 0;
    }
    return column > 0 ? result + "\n" : result;
}

/// Terms with their meanings, in two columns.
std::string TermList(const char* heading, const CTerms& terms)
{
    if (terms.empty())
        return {};

    std::size_t width = 0;
    for (const auto& [term, meaning] : terms)
        width = std::max(width, std::min(term.size(), MAX_TERM_WIDTH));
    const std::size_t indent = width + 4;

    std::string text = std::string("\n") + heading + ":\n";
    for (const auto& [term, meaning] : terms)
    {
        const bool isOwnLine = term.size() > width;
        text += "  " + term;
        if (meaning.empty())
        {
            text += "\n";
            continue;
        }
        text += isOwnLine ? "\n" : std::string(width - term.size() + 2, ' ');
        const std::string wrapped = Wrapped(meaning, indent);
        text += isOwnLine ? wrapped : wrapped.substr(indent);
    }
    return text;
}

CTerms OptionTerms(const std::vector<CCommandOption>& options)
{
    CTerms terms;
    for (const CCommandOption& option : options)
    {
        std::string help = HelpWithChoices(option.m_Help, option.m_Choices);
        if (option.m_IsRepeatable)
            help += " (may be given again)";
        terms.emplace_back(OptionForm(option), help);
    }
    return terms;
}

/// The group's verbs, or the group's own summary where it has none.
std::string GroupSummary(const std::string& group)
{
    std::string verbs;
    for (const CCommand* command : CommandsOfGroup(group))
    {
        if (*command->m_Verb == '\0')
            return command->m_Summary;
        verbs += (verbs.empty() ? "" : ", ") + std::string(command->m_Verb);
    }
    return verbs;
}

} // namespace

std::string OptionForm(const CCommandOption& option)
{
    const std::string name = std::string("--") + option.m_Name;
    return *option.m_ValueName == '\0' ? name : name + " " + option.m_ValueName;
}

std::string ArgumentForm(const CCommandArgument& argument)
{
    const std::string name = argument.m_Name;
    switch (argument.m_Arity)
    {
    case EArity::Optional:
        return "[" + name + "]";
    case EArity::Many:
        return name + "...";
    case EArity::Any:
        return "[" + name + "...]";
    case EArity::One:
        break;
    }
    return name;
}

std::string HelpWithChoices(const char* help, const std::vector<const char*>& choices)
{
    std::string text = help;
    for (std::size_t i = 0; i < choices.size(); i++)
        text += (i == 0 ? ": " : i + 1 < choices.size() ? ", " : " or ") + std::string(choices[i]);
    return text;
}

std::string CommandTitle(const CCommand& command)
{
    const std::string group = command.m_Group;
    return *command.m_Verb == '\0' ? group : group + " " + command.m_Verb;
}

std::string CommandUsage(const CCommand& command)
{
    std::string usage = "utility " + CommandTitle(command) + " [OPTIONS]";
    for (const CCommandArgument& argument : command.m_Arguments)
        usage += " " + ArgumentForm(argument);
    return usage;
}

std::string ProgramHelp()
{
    CTerms groups;
    for (const std::string& group : GroupNames())
        groups.emplace_back(group, GroupSummary(group));

    return "Usage: utility GROUP [VERB] [OPTIONS] [ARGUMENTS]\n\n" +
           Wrapped("What the foundation library of the design suite does, at the command line.",
                   0) +
           TermList("Groups and their verbs", groups) +
           TermList("Options of every command", OptionTerms(GlobalOptions())) +
           "\nExit codes: 0 done, 1 no (no match, differs), 2 wrong usage, 3 failure.\n"
           "\n'utility GROUP --help' tells more.\n";
}

std::string GroupHelp(const std::string& group)
{
    CTerms verbs;
    for (const CCommand* command : CommandsOfGroup(group))
    {
        if (*command->m_Verb == '\0')
            return CommandHelp(*command);
        verbs.emplace_back(command->m_Verb, command->m_Summary);
    }
    return "Usage: utility " + group + " VERB [OPTIONS] [ARGUMENTS]\n" + TermList("Verbs", verbs) +
           "\n'utility " + group + " VERB --help' tells more.\n";
}

std::string CommandHelp(const CCommand& command)
{
    CTerms arguments;
    for (const CCommandArgument& argument : command.m_Arguments)
        arguments.emplace_back(argument.m_Name,
                               HelpWithChoices(argument.m_Help, argument.m_Choices));

    std::string text = "Usage: " + CommandUsage(command) + "\n\n";
    text += Wrapped(std::string(command.m_Summary) + ".", 0);
    if (*command.m_Help != '\0')
        text += "\n" + Wrapped(command.m_Help, 0);
    text += TermList("Arguments", arguments);
    text += TermList("Options", OptionTerms(command.m_Options));
    return text + TermList("Options of every command", OptionTerms(GlobalOptions()));
}

} // namespace utility
