#include "platform/base/Encoding.h"
#include "platform/system/window/UserInterface.h"
#include "text/names/NameIncrement.h"
#include "text/names/NameRange.h"

#include "utility/command/CommandTable.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr int LONG_WORK = 100'000; // names that deserve a bar
constexpr int BAR_STEP = 10'000;   // names between two looks of it

int PrintNext(const CCommandCall& call)
{
    CString next = call.Get("next");
    const CString style = call.Get("style");
    if (style == u"letters")
        IncrementString(next);
    else if (style == u"number")
        IncrementNumber(next, true);
    else if (style == u"file")
        NextFileName(next);
    else
        next = Increment(next);
    if (!call.WantsJson())
    {
        PrintLine(next);
        return RESULT_OK;
    }
    CJsonWriter json;
    json.BeginObject();
    json.Field(u"next", next);
    json.EndObject();
    PrintLine(FromUtf8(json.GetText()));
    return RESULT_OK;
}

bool ReadRange(const CString& text, CNameRange& range)
{
    range.SetString(text);
    if (!range.IsValid())
        PrintError(u"not a name range: " + text);
    return range.IsValid();
}

/// Name by name, so that Ctrl-C ends long work: false then. Long work shows a bar.
template <typename TDo>
bool ForEachName(CNameRange& names, const CString& title, TDo doIt)
{
    IUserInterface& user = GetUserInterface();
    const int total = names.Count();
    if (total > LONG_WORK)
        user.BeginProgress(title, total);
    int done = 0;
    POSITION position = nullptr;
    CString name = names.First(position);
    for (; !name.IsEmpty() && !IsInterrupted(); name = names.Next(position), ++done)
    {
        if (total > LONG_WORK && done % BAR_STEP == 0)
            user.StepProgress(done);
        doIt(name);
    }
    if (total > LONG_WORK)
        user.EndProgress();
    return name.IsEmpty();
}

int PrintContains(const CCommandCall& call, const CNameRange& range)
{
    const bool contains = range.Contains(call.Get("contains"));
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"contains");
        json.Bool(contains);
        json.EndObject();
        PrintLine(FromUtf8(json.GetText()));
    }
    return contains ? RESULT_OK : RESULT_NO;
}

int PrintRange(const CCommandCall& call, const CNameRange& range)
{
    CString count;
    count.Format(u"%d", range.Count());
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Field(u"range", range.GetString());
        json.Field(u"wildcard", range.ConvertToWildcardString());
        json.Key(u"count");
        json.Number(range.Count());
        json.EndObject();
        PrintLine(FromUtf8(json.GetText()));
    }
    else if (call.Has("count"))
        PrintLine(count);
    else
        PrintLine(call.Has("wildcard") ? range.ConvertToWildcardString() : range.GetString());
    return RESULT_OK;
}

int RunRange(const CCommandCall& call)
{
    if (call.Has("next"))
        return PrintNext(call);
    if (call.GetArguments().empty() && !call.Has("add"))
    {
        PrintError(u"RANGE is required, or --add or --next");
        return RESULT_USAGE;
    }

    CNameRange range;
    CNameRange added;
    CNameRange deleted;
    if (!ReadRange(call.GetArgument(0), range) || !ReadRange(call.Get("add"), added) ||
        !ReadRange(call.Get("delete"), deleted))
        return RESULT_FAILURE;
    bool found = false;
    const auto add = [&](const CString& name)
    {
        range.Add(name);
    };
    const auto remove = [&](const CString& name)
    {
        found |= range.Delete(name);
    };
    if (!ForEachName(added, u"Adding names", add) ||
        !ForEachName(deleted, u"Deleting names", remove))
    {
        PrintError(u"interrupted");
        return RESULT_FAILURE;
    }
    if (call.Has("delete") && !found)
    {
        PrintError(u"no such name: " + call.Get("delete"));
        return RESULT_NO;
    }
    return call.Has("contains") ? PrintContains(call, range) : PrintRange(call, range);
}

} // namespace

std::vector<CCommand> RangeCommands()
{
    CCommand range{"range"};
    range.m_Summary = "Work with sets of names such as R[1-10],C3";
    range.m_Help = "--contains answers by its exit code alone, after what is added and deleted.\n"
                   "  utility range 'R[1-10],R12' --add R11\n"
                   "  utility range --next C9";
    range.m_Arguments = {{"RANGE", "The names in compact form", EArity::Optional}};
    range.m_Options = {{"add", "RANGE", "Add names"},
                       {"delete", "RANGE", "Delete names"},
                       {"contains", "NAME", "Ask for a name"},
                       {"wildcard", "", "Give the range as a pattern"},
                       {"count", "", "Give the number of names"},
                       {"next", "NAME", "Give the name after this one instead"},
                       {"style",
                        "STYLE",
                        "How names follow each other; preset: name",
                        false,
                        {"name", "letters", "number", "file"}}};
    range.m_Run = RunRange;
    return {range};
}

} // namespace utility
