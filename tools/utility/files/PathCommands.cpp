#include "files/FilePath.h"
#include "files/encoded/StdioFileEx.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/CommandTable.h"
#include "utility/files/PathListCommand.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char16_t STANDARD_INPUT[] = u"\\dev\\stdin";
constexpr int DEFAULT_LENGTH = 40;

/// The arguments, or the lines of the standard input if there are none.
std::vector<CString> PathsOf(const CCommandCall& call)
{
    if (!call.GetArguments().empty())
        return call.GetArguments();
    std::vector<CString> paths;
    CStdioFileEx input;
    if (input.Open(STANDARD_INPUT, CFile::modeRead))
    {
        for (CString line; input.ReadString(line);)
            paths.push_back(line);
    }
    return paths;
}

/// One result a path, as a line or in a list.
int PrintEach(const CCommandCall& call,
              CString (*change)(const CString& path, const CCommandCall& call))
{
    CJsonWriter json;
    json.BeginArray();
    for (const CString& path : PathsOf(call))
    {
        const CString result = change(path, call);
        json.Text(result);
        if (!call.WantsJson())
            PrintLine(result);
    }
    json.EndArray();
    if (call.WantsJson())
        PrintBytes(json.GetText() + "\n");
    return RESULT_OK;
}

int Parts(const CCommandCall& call)
{
    CJsonWriter json;
    CTextTable table;
    for (const char16_t* heading : {u"Drive", u"Directory", u"Name", u"Extension"})
        table.AddColumn(heading);
    json.BeginArray();
    for (const CString& text : PathsOf(call))
    {
        const CFilePath path(text);
        table.AddRow(
            {path.GetDrive(), path.GetDirectory(), path.GetFileName(), path.GetExtension()});
        json.BeginObject();
        json.Field(u"drive", path.GetDrive());
        json.Field(u"directory", path.GetDirectory());
        json.Field(u"name", path.GetFileName());
        json.Field(u"extension", path.GetExtension());
        json.Key(u"cut");
        json.Bool(path.WasCut());
        json.EndObject();
    }
    json.EndArray();
    if (call.WantsJson())
        PrintBytes(json.GetText() + "\n");
    else
        table.Print();
    return RESULT_OK;
}

CString Squeezed(const CString& path, const CCommandCall& call)
{
    CString text = path;
    CFilePath::Squeeze(text, call.GetNumber("length", DEFAULT_LENGTH), nullptr);
    return text;
}

int Squeeze(const CCommandCall& call)
{
    return PrintEach(call, Squeezed);
}

CString InWantedForm(const CString& path, const CCommandCall& call)
{
    return call.Has("native") ? NativePath(path) : path;
}

CString Normalised(const CString& path, const CCommandCall& call)
{
    return InWantedForm(CFilePath::FullPath(path), call);
}

int Normalise(const CCommandCall& call)
{
    return PrintEach(call, Normalised);
}

/// Folders from the first argument on; the last is the name.
int Join(const CCommandCall& call)
{
    const std::vector<CString>& arguments = call.GetArguments();
    CFilePath path;
    path.SetDriveAndDirectory(arguments.front());
    for (std::size_t i = 1; i + 1 < arguments.size(); ++i)
        path.AddSubDirectory(arguments[i]);
    if (arguments.size() > 1)
        path.SetFileName(arguments.back());
    if (path.WasCut())
    {
        PrintError(u"the path is too long");
        return RESULT_FAILURE;
    }
    const CString joined = InWantedForm(path.GetPath(), call);
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.Text(joined);
        PrintBytes(json.GetText() + "\n");
    }
    else
        PrintLine(joined);
    return RESULT_OK;
}

CCommandArgument PathArguments()
{
    return {"PATH", "a path; the lines of the standard input if there is none", EArity::Any};
}

CCommandOption NativeOption()
{
    return {"native", "", "as this system and other programs spell it"};
}

} // namespace

std::vector<CCommand> PathCommands()
{
    return {
        {"path",
         "parts",
         "Cut paths into drive, directory, name and extension",
         "",
         {PathArguments()},
         {},
         Parts},
        {"path",
         "squeeze",
         "Make paths fit a label: the name, and its folder in brackets",
         "    utility path squeeze '\\lib\\analog\\filters\\board.pcb' --length 25",
         {PathArguments()},
         {NumberOption("length", "COUNT",
                       "the longest path that fits, in characters; 40 if not given")},
         Squeeze},
        {"path",
         "join",
         "Join folders and a name to a path",
         "    utility path join /lib analog board.pcb --native",
         {{"PART", "a folder, folders below it, and last the name", EArity::Many}},
         {NativeOption()},
         Join},
        {"path",
         "normalise",
         "Make paths whole, with \".\" and \"..\" folded as text",
         "    utility path normalise ../lib/board.pcb --native",
         {PathArguments()},
         {NativeOption()},
         Normalise},
        PathListCommand(),
    };
}

} // namespace utility
