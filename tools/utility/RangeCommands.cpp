#include "platform/base/Encoding.h"
#include "text/names/NameIncrement.h"
#include "text/names/NameRange.h"

#include "CommandTable.h"
#include "Interrupt.h"
#include "ToolOutput.h"

namespace utility
{

namespace
{

int PrintNext(const CString& name, const CString& style)
{
    CString next = name;
    if (style == u"letters")
        IncrementString(next);
    else if (style == u"number")
        IncrementNumber(next, true);
    else if (style == u"file")
        NextFileName(next);
    else
        next = Increment(name);
    PrintLine(next);
    return RESULT_OK;
}

bool ReadRange(const CString& text, CNameRange& range)
{
    range.SetString(text);
    if (!range.IsValid())
        PrintError(u"not a name range: " + text);
    return range.IsValid();
}

/// Name by name, so that Ctrl-C ends long work; false then.
bool AddNames(CNameRange& range, CNameRange& added)
{
    POSITION position = nullptr;
    for (CString name = added.First(position); !name.IsEmpty(); name = added.Next(position))
    {
        if (IsInterrupted())
            return false;
        range.Add(name);
    }
    return true;
}

int PrintRange(const CCommandCall& call, const CNameRange& range)
{
    if (call.Has("count"))
    {
        CString count;
        count.Format(u"%d", range.Count());
        PrintLine(count);
    }
    else
        PrintLine(call.Has("wildcard") ? range.ConvertToWildcardString() : range.GetString());
    return RESULT_OK;
}

int RunRange(const CCommandCall& call)
{
    if (call.Has("next"))
        return PrintNext(call.Get("next"), call.Get("style", u"name"));

    CNameRange range;
    CNameRange added;
    CNameRange deleted;
    if (!ReadRange(call.GetArgument(0), range) || !ReadRange(call.Get("add"), added) ||
        !ReadRange(call.Get("delete"), deleted))
        return RESULT_FAILURE;
    if (call.Has("contains"))
        return range.Contains(call.Get("contains")) ? RESULT_OK : RESULT_NO;

    if (!AddNames(range, added))
        return RESULT_FAILURE;
    if (call.Has("delete") && !range.Delete(call.Get("delete")))
    {
        PrintError(u"no such name: " + call.Get("delete"));
        return RESULT_NO;
    }
    return PrintRange(call, range);
}

} // namespace

std::vector<CCommand> RangeCommands()
{
    CCommand range{"range"};
    range.m_Summary = "Work with sets of names such as R[1-10],C3";
    range.m_Help = "--contains answers by its exit code alone.\n"
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
