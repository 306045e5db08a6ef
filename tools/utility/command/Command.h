#pragma once

#include "platform/base/String.h"

#include <climits>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace utility
{

/// What a command answers to the shell.
constexpr int RESULT_OK = 0;
constexpr int RESULT_NO = 1;      // no match, differs
constexpr int RESULT_USAGE = 2;   // the command line is wrong
constexpr int RESULT_FAILURE = 3; // told on the error output

class CCommandCall;

/// How often an argument may stand.
enum class EArity
{
    One,
    Optional,
    Many, // one or more
    Any   // none or more
};

struct CCommandArgument
{
    const char* m_Name; // as help shows it: "PATTERN"
    const char* m_Help;
    EArity m_Arity = EArity::One;
    std::vector<const char*> m_Choices = {}; // the only values allowed; empty allows all
};

/// Which whole numbers an option takes.
struct CNumberBounds
{
    int m_Lowest = 0;
    int m_Highest = INT_MAX;
};

struct CCommandOption
{
    const char* m_Name;           // without its dashes: "limit"
    const char* m_ValueName = ""; // as help shows it: "COUNT"; empty makes a flag
    const char* m_Help = "";
    bool m_IsRepeatable = false; // may stand more than once; otherwise the last one counts
    std::vector<const char*> m_Choices = {};
    std::optional<CNumberBounds> m_Bounds = {}; // of a number; without them any text is taken
};

/// An option that takes a whole number.
CCommandOption NumberOption(const char* name, const char* valueName, const char* help,
                            CNumberBounds bounds = CNumberBounds());

/// One command of the tool, as data: parser, help, completion and manual are all made from it.
///
/// Texts are UTF-8, plain sentences. A verb may be empty: then the group is the command itself.
struct CCommand
{
    const char* m_Group;
    const char* m_Verb = "";
    const char* m_Summary = ""; // one line, no full stop
    const char* m_Help = "";    // what the summary leaves open, with an example or two
    std::vector<CCommandArgument> m_Arguments = {};
    std::vector<CCommandOption> m_Options = {};
    int (*m_Run)(const CCommandCall& call) = nullptr;
    bool m_IsTraced = false; // long work on stores and sources, which the tool's own log may follow
};

/// What the user gave for one command. Texts come from the command line in the default page.
class CCommandCall
{
public:
    bool Has(const char* option) const { return m_Options.count(option) != 0; }

    /// The last value given, or the preset.
    CString Get(const char* option, const CString& preset = CString()) const;

    /// The same of an option with bounds.
    int GetNumber(const char* option, int preset) const;

    /// All values of a repeatable option, in their order.
    std::vector<CString> GetAll(const char* option) const;

    const std::vector<CString>& GetArguments() const { return m_Arguments; }

    /// The argument at an index, or the preset.
    CString GetArgument(std::size_t index, const CString& preset = CString()) const;

    /// --json: machine output is wanted.
    bool WantsJson() const { return Has("json"); }

    /// --yes: questions are answered by yes.
    bool SaysYes() const { return Has("yes"); }

    // Filled by the command line
    void AddValue(const std::string& option, const CString& value);
    void AddFlag(const std::string& option) { m_Options[option]; }
    void AddArgument(const CString& argument) { m_Arguments.push_back(argument); }

private:
    std::map<std::string, std::vector<CString>> m_Options; // a flag has no values
    std::vector<CString> m_Arguments;
};

} // namespace utility
