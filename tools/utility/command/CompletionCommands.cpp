#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// The verbs of a group; none for a group that is a command itself.
std::vector<std::string> VerbsOf(const std::string& group)
{
    std::vector<std::string> verbs;
    for (const CCommand* command : CommandsOfGroup(group))
    {
        if (*command->m_Verb != '\0')
            verbs.emplace_back(command->m_Verb);
    }
    return verbs;
}

/// What may follow a command: its own options, those of every command, fixed values of arguments.
std::vector<std::string> WordsOf(const CCommand& command)
{
    std::vector<std::string> words;
    for (const CCommandArgument& argument : command.m_Arguments)
        words.insert(words.end(), argument.m_Choices.begin(), argument.m_Choices.end());
    for (const CCommandOption& option : command.m_Options)
        words.push_back(std::string("--") + option.m_Name);
    for (const CCommandOption& option : GlobalOptions())
        words.push_back(std::string("--") + option.m_Name);
    return words;
}

std::string QuotedForShell(const std::string& text)
{
    std::string quoted = "'";
    for (const char unit : text)
        quoted += unit == '\'' ? std::string("'\\''") : std::string(1, unit);
    return quoted + "'";
}

std::string BashScript()
{
    std::string script = "# bash completion of utility\n"
                         "_utility()\n{\n"
                         "    local current=${COMP_WORDS[COMP_CWORD]} words=\n"
                         "    case \"$COMP_CWORD ${COMP_WORDS[1]} ${COMP_WORDS[2]}\" in\n"
                         "    '1 '*) words='" +
                         Joined(GroupNames()) + "' ;;\n";
    for (const std::string& group : GroupNames())
    {
        const std::vector<std::string> verbs = VerbsOf(group);
        if (!verbs.empty())
            script += "    '2 " + group + " '*) words='" + Joined(verbs) + "' ;;\n";
    }
    for (const CCommand& command : CommandTable())
    {
        const std::string title = CommandTitle(command);
        const char* end = *command.m_Verb == '\0' ? " '*" : "'";
        script += "    *' " + title + end + ") words='" + Joined(WordsOf(command)) + "' ;;\n";
    }
    return script + "    esac\n"
                    "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
                    "}\n"
                    "complete -o default -F _utility utility\n";
}

/// The other shell's own completion is not needed: it runs the one above.
std::string ZshScript()
{
    return "#compdef utility\n"
           "autoload -U +X bashcompinit && bashcompinit\n" +
           BashScript();
}

std::string FishScript()
{
    const std::string begin = "complete -c utility";
    std::string script = "# fish completion of utility\n";
    for (const CCommandOption& option : GlobalOptions())
    {
        script += begin + " -l " + option.m_Name + (*option.m_ValueName ? " -r" : "") + " -d " +
                  QuotedForShell(option.m_Help) + "\n";
    }
    for (const std::string& group : GroupNames())
        script += begin + " -n __fish_use_subcommand -a " + group + "\n";
    for (const CCommand& command : CommandTable())
    {
        const std::string group = command.m_Group;
        const std::string verb = command.m_Verb;
        std::string condition = "__fish_seen_subcommand_from " + group;
        if (!verb.empty())
        {
            script += begin + " -n '" + condition + "; and not __fish_seen_subcommand_from " +
                      Joined(VerbsOf(group)) + "' -a " + verb + " -d " +
                      QuotedForShell(command.m_Summary) + "\n";
            condition += "; and __fish_seen_subcommand_from " + verb;
        }
        for (const CCommandOption& option : command.m_Options)
        {
            script += begin + " -n '" + condition + "' -l " + option.m_Name +
                      (*option.m_ValueName ? " -r" : "") + " -d " + QuotedForShell(option.m_Help) +
                      "\n";
        }
    }
    return script;
}

int RunCompletion(const CCommandCall& call)
{
    const CString shell = call.GetArgument(0);
    PrintBytes(shell == u"bash" ? BashScript() : shell == u"zsh" ? ZshScript() : FishScript());
    return RESULT_OK;
}

} // namespace

std::vector<CCommand> CompletionCommands()
{
    return {
        {
            .m_Group = "completion",
            .m_Summary = "Print the script that completes commands in a shell",
            .m_Help = "source <(utility completion bash)",
            .m_Arguments = {{"SHELL", "Whose script", EArity::One, {"bash", "zsh", "fish"}}},
            .m_Run = RunCompletion,
        },
    };
}

} // namespace utility
