#include "platform/base/Encoding.h"
#include "text/match/MatchingString.h"
#include "text/match/StringCompare.h"
#include "text/match/StringMatch.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

#include <iostream>

namespace utility
{

namespace
{

/// The next line of the standard input, without its end; false behind the last.
bool ReadName(CString& name)
{
    std::string line;
    if (!std::getline(std::cin, line))
        return false;
    if (line.ends_with('\r'))
        line.pop_back();
    name = FromBytes(CP_ACP, line);
    return true;
}

/// Calls for each name behind the first `skipped` arguments, or for each line of the input if there
/// is none; nothing is gathered, so that the input may be endless.
template <typename TUse>
void ForEachName(const CCommandCall& call, std::size_t skipped, TUse use)
{
    const std::vector<CString>& arguments = call.GetArguments();
    for (std::size_t index = skipped; index < arguments.size(); ++index)
        use(arguments[index]);
    CString line;
    while (arguments.size() <= skipped && ReadName(line))
        use(line);
}

void PrintMatch(const CString& name, const CString* residue)
{
    PrintLine(residue ? name + u"\t" + *residue : name);
}

void WriteMatch(CJsonWriter& json, const CString& name, const CString* residue)
{
    json.BeginObject();
    json.Field(u"name", name);
    if (residue)
        json.Field(u"residue", *residue);
    json.EndObject();
    json.Flush();
}

/// The texts of a pattern's series from an index on.
int PrintSeries(const CCommandCall& call)
{
    const CString pattern = call.GetArgument(0);
    int index = call.GetNumber("from", 1);
    const int count = call.GetNumber("count", 1);
    bool isGenerated = true;
    CJsonWriter json;
    json.BeginArray();
    for (int text = 0; text < count && isGenerated; ++text)
    {
        CString result;
        isGenerated = GenerateNextMatchingString(pattern, index, result);
        if (isGenerated && call.WantsJson())
            json.Text(result);
        else if (isGenerated)
            PrintLine(result);
    }
    json.EndArray();
    if (call.WantsJson())
        PrintLine(FromUtf8(json.GetText()));
    return isGenerated ? RESULT_OK : RESULT_NO;
}

int RunMatch(const CCommandCall& call)
{
    if (call.Has("next"))
        return PrintSeries(call);

    const CString pattern = call.GetArgument(0);
    const bool caseSensitive = call.Has("case");
    bool hasMatch = false;
    CJsonWriter json;
    if (call.WantsJson())
        json.BeginArray();
    ForEachName(call, 1,
                [&](const CString& name)
                {
                    CString residue;
                    const bool keepsResidue = call.Has("residue");
                    const bool matches =
                        keepsResidue ? StringMatchWithResidue(pattern, name, residue, caseSensitive)
                                     : StringMatch(pattern, name, caseSensitive);
                    if (!matches)
                        return;
                    hasMatch = true;
                    if (call.WantsJson())
                        WriteMatch(json, name, keepsResidue ? &residue : nullptr);
                    else
                        PrintMatch(name, keepsResidue ? &residue : nullptr);
                });
    if (call.WantsJson())
    {
        json.EndArray();
        PrintLine(FromUtf8(json.GetText()));
    }
    return hasMatch ? RESULT_OK : RESULT_NO;
}

int RunSort(const CCommandCall& call)
{
    const bool caseSensitive = call.Has("case");
    const int direction = call.Has("reverse") ? -1 : 1;
    std::vector<CString> names;
    ForEachName(call, 0, [&](const CString& name) { names.push_back(name); });
    // Stable, since the order may go round in a circle on odd texts.
    std::stable_sort(
        names.begin(), names.end(),
        [&](const CString& left, const CString& right)
        { return StringCompare(left, right, caseSensitive, true, true) * direction < 0; });
    if (!call.WantsJson())
    {
        for (const CString& name : names)
            PrintLine(name);
        return RESULT_OK;
    }
    CJsonWriter json;
    json.BeginArray();
    for (const CString& name : names)
        json.Text(name);
    json.EndArray();
    PrintLine(FromUtf8(json.GetText()));
    return RESULT_OK;
}

} // namespace

std::vector<CCommand> MatchCommands()
{
    CCommand match{"match"};
    match.m_Summary = "Print the names that a pattern matches";
    match.m_Help = "Names come one a line from the standard input when none is given.\n"
                   "  utility match 'R%i|C%i' R1 C22 X3\n"
                   "  utility match --next 'R*' --from 7 --count 3";
    match.m_Arguments = {{"PATTERN", "The pattern, such as '*10k*' or 'R%[1:20%]'"},
                         {"NAME", "A name to be matched", EArity::Any}};
    match.m_Options = {{"case", "", "Upper and lower case differ"},
                       {"residue", "", "Print what * and ? took, behind a tab"},
                       {"next", "", "Print texts of the pattern's series instead"},
                       NumberOption("from", "INDEX", "Where the series begins; preset: 1"),
                       NumberOption("count", "COUNT", "How many texts of the series; preset: 1")};
    match.m_Run = RunMatch;

    CCommand sort{"sort"};
    sort.m_Summary = "Sort names as lists show them";
    sort.m_Help =
        "R9 stands before R10. Names come one a line from the standard input when none is "
        "given.\n  utility sort R10 R9 '<None>'";
    sort.m_Arguments = {{"NAME", "A name", EArity::Any}};
    sort.m_Options = {{"case", "", "Upper and lower case differ"},
                      {"reverse", "", "The last name first"}};
    sort.m_Run = RunSort;
    return {match, sort};
}

} // namespace utility
