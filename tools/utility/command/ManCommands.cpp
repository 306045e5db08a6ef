#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

#include <sstream>

namespace utility
{

namespace
{

/// Text that the manual's formatter takes as it stands: no line begins with a control mark.
std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char unit : text)
    {
        const bool isLineStart = escaped.empty() || escaped.back() == '\n';
        if (isLineStart && (unit == '.' || unit == '\''))
            escaped += "\\&";
        if (unit == '\\')
            escaped += "\\e";
        else if (unit == '-')
            escaped += "\\-";
        else
            escaped += unit;
    }
    return escaped;
}

std::string Term(const std::string& term, const std::string& meaning)
{
    return ".TP\n.B " + Escaped(term) + "\n" + Escaped(meaning) + "\n";
}

/// Paragraphs flow; a line that begins with a blank stands as it is.
std::string Body(const std::string& help)
{
    std::string body = ".PP\n";
    bool isExample = false;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);)
    {
        if (!line.empty() && (line.front() == ' ') != isExample)
        {
            isExample = !isExample;
            body += isExample ? ".nf\n" : ".fi\n";
        }
        body += line.empty() ? ".PP\n" : Escaped(line) + "\n";
    }
    return isExample ? body + ".fi\n" : body;
}

std::string CommandSection(const CCommand& command)
{
    std::string text = ".SS " + Escaped(CommandUsage(command)) + "\n";
    text += Escaped(std::string(command.m_Summary) + ".") + "\n";
    if (*command.m_Help != '\0')
        text += Body(command.m_Help);
    for (const CCommandArgument& argument : command.m_Arguments)
        text += Term(argument.m_Name, HelpWithChoices(argument.m_Help, argument.m_Choices));
    for (const CCommandOption& option : command.m_Options)
        text += Term(OptionForm(option), HelpWithChoices(option.m_Help, option.m_Choices));
    return text;
}

int RunMan(const CCommandCall&)
{
    std::string page = ".TH UTILITY 1 \"\" \"utility " UTILITY_VERSION "\"\n"
                       ".SH NAME\nutility \\- the design suite's foundation library at the "
                       "command line\n"
                       ".SH SYNOPSIS\n.B utility\n.I GROUP\n[\n.I VERB\n] [OPTIONS] [ARGUMENTS]\n"
                       ".SH OPTIONS OF EVERY COMMAND\n";
    for (const CCommandOption& option : GlobalOptions())
        page += Term(OptionForm(option), option.m_Help);

    page += ".SH COMMANDS\n";
    for (const CCommand& command : CommandTable())
        page += CommandSection(command);

    page += ".SH EXIT STATUS\n";
    page += Term("0", "Done, or yes.");
    page += Term("1", "No: nothing matches, or what was compared differs.");
    page += Term("2", "The command line is wrong.");
    page += Term("3", "A failure, told on the error output.");
    PrintBytes(page);
    return RESULT_OK;
}

} // namespace

std::vector<CCommand> ManCommands()
{
    return {
        {
            .m_Group = "man",
            .m_Summary = "Print the manual page of the tool",
            .m_Help = "utility man > utility.1 && man ./utility.1",
            .m_Run = RunMan,
        },
    };
}

} // namespace utility
