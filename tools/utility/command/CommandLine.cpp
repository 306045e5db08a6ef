#include "utility/command/CommandLine.h"

#include "platform/base/Encoding.h"
#include "platform/db/ConnectString.h"

#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"
#include "utility/command/WordHint.h"
#include "utility/output/ToolOutput.h"

#include <CLI/CLI.hpp> // slow to compile: named here alone
#include <charconv>

namespace utility
{

namespace
{

constexpr const char* VERSION_LINE = "utility " UTILITY_VERSION;

CCommandLine Finished(int result)
{
    CCommandLine line;
    line.m_Result = result;
    return line;
}

/// Tells what is wrong, and which help to look at.
CCommandLine Usage(const std::string& problem, const std::string& title)
{
    const std::string name = title.empty() ? "utility" : "utility " + title;
    const char* see = problem.back() == '?' ? " See '" : "; see '";
    PrintError(FromUtf8(problem + see + name + " --help'"));
    return Finished(RESULT_USAGE);
}

/// A word of the user's as an error shows it: it may be a connect string in the wrong place.
std::string Shown(const std::string& word)
{
    return ToUtf8(MaskPasswords(FromUtf8(word).View()).View());
}

CCommandLine UnknownWord(const char* problem, const std::string& word,
                         const std::vector<std::string>& known, const std::string& title)
{
    const std::string meant = NearestWord(word, known);
    const std::string hint = meant.empty() ? "" : ", did you mean '" + meant + "'?";
    return Usage(std::string(problem) + " '" + Shown(word) + "'" + hint, title);
}

/// Takes the first word that is no option out of the list.
std::optional<std::string> TakeName(std::vector<std::string>& words)
{
    for (std::size_t i = 0; i < words.size(); i++)
    {
        if (words[i] == "--app")
        {
            i++; // its value is no name
            continue;
        }
        if (!words[i].empty() && words[i].front() == '-')
            continue;
        std::string name = words[i];
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(i));
        return name;
    }
    return std::nullopt;
}

/// Put before words that begin like a list or like itself, since the parser would take "[a,b]"
/// apart.
constexpr char GUARD = '\x01';

std::string Guarded(const std::string& word)
{
    const bool isList = !word.empty() && (word.front() == '[' || word.front() == GUARD);
    return isList ? GUARD + word : word;
}

std::string Unguarded(const std::string& word)
{
    return !word.empty() && word.front() == GUARD ? word.substr(1) : word;
}

/// Why a word is no whole number within bounds; empty if it is one.
std::string FindNumberFault(const std::string& word, const CNumberBounds& bounds)
{
    int number = 0;
    const char* const end = word.data() + word.size();
    const std::from_chars_result read = std::from_chars(word.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end && number >= bounds.m_Lowest &&
        number <= bounds.m_Highest)
        return {};
    const std::string last =
        bounds.m_Highest == INT_MAX ? " on" : " to " + std::to_string(bounds.m_Highest);
    return "'" + Shown(word) + "' is no whole number from " + std::to_string(bounds.m_Lowest) +
           last;
}

/// A parser over what one command takes; the call is filled when it succeeds.
class CParser
{
public:
    explicit CParser(const CCommand* command)
    {
        m_App.set_help_flag("-h,--help", "");
        m_App.set_version_flag("--version", VERSION_LINE);
        for (const CCommandOption& option : GlobalOptions())
        {
            if (!m_App.get_option_no_throw(std::string("--") + option.m_Name))
                AddOption(option);
        }
        if (!command)
            return;
        for (const CCommandOption& option : command->m_Options)
            AddOption(option);
        for (const CCommandArgument& argument : command->m_Arguments)
            AddArgument(argument);
    }

    void Parse(const std::vector<std::string>& words)
    {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        std::transform(reversed.begin(), reversed.end(), reversed.begin(), Guarded);
        m_App.parse(reversed);
    }

    /// Tells of the first word that nothing takes.
    CCommandLine TellExtra(const std::string& title) const
    {
        const std::vector<std::string> extras = m_App.remaining();
        const std::string extra = extras.empty() ? std::string() : Unguarded(extras.front());
        if (extra.size() < 2 || extra.front() != '-')
            return Usage("'" + Shown(extra) + "' is one argument too many", title);

        std::vector<std::string> known = {"--help", "--version"};
        for (const auto& [name, option] : m_Options)
            known.push_back("--" + name);
        return UnknownWord("there is no option", extra.substr(0, extra.find('=')), known, title);
    }

    CCommandCall MakeCall() const
    {
        CCommandCall call;
        for (const auto& [name, option] : m_Options)
        {
            if (option->count() == 0)
                continue;
            call.AddFlag(name);
            if (option->get_items_expected_max() == 0)
                continue;
            for (const std::string& value : option->results())
                call.AddValue(name, FromBytes(CP_ACP, Unguarded(value)));
        }
        for (const CLI::Option* argument : m_Arguments)
        {
            for (const std::string& value : argument->results())
                call.AddArgument(FromBytes(CP_ACP, Unguarded(value)));
        }
        return call;
    }

private:
    void AddOption(const CCommandOption& option)
    {
        const std::string name = std::string("--") + option.m_Name;
        CLI::Option* added = nullptr;
        if (*option.m_ValueName == '\0')
        {
            added = m_App.add_flag(name);
        }
        else
        {
            added = m_App.add_option(name)->expected(1);
            added->multi_option_policy(option.m_IsRepeatable ? CLI::MultiOptionPolicy::TakeAll
                                                             : CLI::MultiOptionPolicy::TakeLast);
            AddChoices(added, option.m_Choices);
            if (option.m_Bounds)
                added->check([bounds = *option.m_Bounds](const std::string& word)
                             { return FindNumberFault(Unguarded(word), bounds); });
        }
        m_Options.emplace_back(option.m_Name, added);
    }

    void AddArgument(const CCommandArgument& argument)
    {
        const bool isMany = argument.m_Arity == EArity::Many || argument.m_Arity == EArity::Any;
        CLI::Option* added = m_App.add_option(argument.m_Name);
        added->expected(1, isMany ? CLI::detail::expected_max_vector_size : 1);
        added->allow_extra_args(isMany);
        added->required(argument.m_Arity == EArity::One || argument.m_Arity == EArity::Many);
        AddChoices(added, argument.m_Choices);
        m_Arguments.push_back(added);
    }

    static void AddChoices(CLI::Option* option, const std::vector<const char*>& choices)
    {
        if (!choices.empty())
            option->check(CLI::IsMember(std::vector<std::string>(choices.begin(), choices.end())));
    }

    CLI::App m_App;
    std::vector<std::pair<std::string, CLI::Option*>> m_Options;
    std::vector<CLI::Option*> m_Arguments;
};

/// The call that the words make for a command, or for no command where null; otherwise the result
/// of what was told instead.
std::variant<CCommandCall, CCommandLine> ReadCall(const CCommand* command,
                                                  const std::vector<std::string>& words,
                                                  const std::string& help, const std::string& title)
{
    CParser parser(command);
    try
    {
        parser.Parse(words);
        return parser.MakeCall();
    }
    catch (const CLI::CallForHelp&)
    {
        PrintBytes(help);
    }
    catch (const CLI::CallForVersion&)
    {
        PrintLine(FromUtf8(VERSION_LINE));
    }
    catch (const CLI::ExtrasError&)
    {
        return parser.TellExtra(title);
    }
    catch (const CLI::ArgumentMismatch& error)
    {
        const std::string reason = error.what(); // "--limit: 1 required COUNT missing"
        return Usage(reason.substr(0, reason.find(':')) + " needs a value", title);
    }
    catch (const CLI::ParseError& error)
    {
        return Usage(error.what(), title);
    }
    return Finished(RESULT_OK);
}

/// The words name no command: they ask for help, or for too little.
CCommandLine ReadIncomplete(const std::vector<std::string>& words, const std::string& help,
                            const std::string& title)
{
    const auto call = ReadCall(nullptr, words, help, title);
    if (const CCommandLine* told = std::get_if<CCommandLine>(&call))
        return *told;
    return Usage(title.empty() ? "a group is missing" : "a verb is missing", title);
}

} // namespace

CCommandLine ReadCommand(const CCommand& command, const std::vector<std::string>& words)
{
    const auto call = ReadCall(&command, words, CommandHelp(command), CommandTitle(command));
    if (const CCommandLine* told = std::get_if<CCommandLine>(&call))
        return *told;
    return {&command, std::get<CCommandCall>(call), RESULT_OK};
}

CCommandLine ReadCommandLine(const std::vector<std::string>& words)
{
    std::vector<std::string> rest = words;
    const std::optional<std::string> group = TakeName(rest);
    if (!group)
        return ReadIncomplete(rest, ProgramHelp(), {});

    const std::vector<const CCommand*> commands = CommandsOfGroup(*group);
    if (commands.empty())
        return UnknownWord("there is no group", *group, GroupNames(), {});
    if (*commands.front()->m_Verb == '\0')
        return ReadCommand(*commands.front(), rest);

    const std::optional<std::string> verb = TakeName(rest);
    if (!verb)
        return ReadIncomplete(rest, GroupHelp(*group), *group);

    std::vector<std::string> verbs;
    for (const CCommand* command : commands)
    {
        if (*verb == command->m_Verb)
            return ReadCommand(*command, rest);
        verbs.emplace_back(command->m_Verb);
    }
    return UnknownWord("there is no verb", *verb, verbs, *group);
}

} // namespace utility
