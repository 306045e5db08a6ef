#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "settings/xml/XMLSettings.h"

#include "CommandTable.h"
#include "ToolOutput.h"
#include "XmlCheck.h"

namespace utility
{

namespace
{

CString FileArgument(const CCommandCall& call, std::size_t index)
{
    return ClassicPath(ToUtf8(call.GetArgument(index).View()));
}

int FailOn(const CString& path, const CString& reason)
{
    PrintError(CString(NativePath(path)) + u": " + reason);
    return RESULT_FAILURE;
}

bool ReadLines(const CString& path, std::vector<CString>& lines)
{
    try
    {
        CStdioFileEx file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CStdioFileEx::modeReadUTF8))
            return false;
        for (CString line; file.ReadString(line);)
            lines.push_back(line);
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

CString Describe(const CString& path, const CXmlFault& fault)
{
    CString text;
    text.Format(u"%s:%d:%d: %s", NativePath(path), fault.m_Line, fault.m_Column, fault.m_Reason);
    return text;
}

void Prepare(const CCommandCall& call, CXMLSettings& settings)
{
    settings.SetEncodings(_wtoi(call.Get("encodings", u"2")));
    settings.SetAllowDuplicates(call.Has("duplicates"));
}

/// Loads the file named by an argument; false, and told, if it cannot be read.
bool Load(const CCommandCall& call, std::size_t index, CXMLSettings& settings)
{
    Prepare(call, settings);
    const CString path = FileArgument(call, index);
    if (settings.LoadXML(path))
        return true;
    FailOn(path, u"the file cannot be read");
    return false;
}

/// As Load, for a file that is to be saved again: one that would lose something is refused without
/// --force.
bool LoadForChange(const CCommandCall& call, std::size_t index, CXMLSettings& settings)
{
    const CString path = FileArgument(call, index);
    std::vector<CString> lines;
    if (!call.Has("force") && ReadLines(path, lines))
    {
        const CXmlLook look = LookThroughXml(lines);
        if (!look.m_Faults.empty())
        {
            PrintError(Describe(path, look.m_Faults.front()) +
                       u"; nothing is changed without --force");
            return false;
        }
        if (look.m_HasComments)
        {
            FailOn(path, u"saving drops its comments; nothing is changed without --force");
            return false;
        }
    }
    return Load(call, index, settings);
}

/// As above, but a file that is not there yet is made by the save.
bool LoadOrMake(const CCommandCall& call, std::size_t index, CXMLSettings& settings)
{
    CFileStatus status;
    if (CFile::GetStatus(FileArgument(call, index), status))
        return LoadForChange(call, index, settings);
    Prepare(call, settings);
    return true;
}

int Save(const CString& path, CXMLSettings& settings)
{
    return settings.SaveXML(path) ? RESULT_OK : FailOn(path, u"the file cannot be written");
}

void WriteElement(CXMLSettings& settings, void* handle, CJsonWriter& json)
{
    json.BeginObject();
    json.Field(u"name", settings.GetElementNameByHandle(handle));
    json.Field(u"value", settings.GetElementValueByHandle(handle));
    json.Key(u"children");
    json.Number(settings.GetChildCountByHandle(handle));
    json.EndObject();
}

void FinishJson(CJsonWriter& json)
{
    json.Flush();
    PrintBytes("\n");
}

int RunGet(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!Load(call, 0, settings))
        return RESULT_FAILURE;
    CString value;
    if (!settings.GetValue(CString(), call.GetArgument(1), value))
        return RESULT_NO;
    if (!call.WantsJson())
    {
        PrintLine(value);
        return RESULT_OK;
    }
    CJsonWriter json;
    json.Text(value);
    FinishJson(json);
    return RESULT_OK;
}

int RunSet(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!LoadOrMake(call, 0, settings))
        return RESULT_FAILURE;
    settings.SetValue(CString(), call.GetArgument(1), call.GetArgument(2));
    return Save(FileArgument(call, 0), settings);
}

int RunList(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!Load(call, 0, settings))
        return RESULT_FAILURE;
    void* const parent = settings.FindElementHandle(call.GetArgument(1));
    if (!parent)
        return RESULT_NO;
    CTextTable table;
    table.AddColumn(u"Name");
    table.AddColumn(u"Children", CTextTable::EAlign::Right);
    table.AddColumn(u"Value");
    CJsonWriter json;
    json.BeginArray();
    void* child = settings.GetChildByHandle(parent, 0);
    for (; child; child = settings.GetNextElementByHandle(child, false))
    {
        CString count;
        count.Format(u"%d", settings.GetChildCountByHandle(child));
        table.AddRow({settings.GetElementNameByHandle(child), count,
                      settings.GetElementValueByHandle(child)});
        WriteElement(settings, child, json);
    }
    json.EndArray();
    if (call.WantsJson())
        FinishJson(json);
    else
        table.Print();
    return RESULT_OK;
}

int RunDelete(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!LoadForChange(call, 0, settings))
        return RESULT_FAILURE;
    if (!settings.DeleteValue(CString(), call.GetArgument(1)))
        return RESULT_NO;
    return Save(FileArgument(call, 0), settings);
}

int RunFind(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!Load(call, 0, settings))
        return RESULT_FAILURE;
    void* const found = settings.FindElementHandleWithAttributes(call.GetArgument(1));
    if (!found)
        return RESULT_NO;
    if (!call.WantsJson())
    {
        PrintLine(settings.GetElementValueByHandle(found));
        return RESULT_OK;
    }
    CJsonWriter json;
    WriteElement(settings, found, json);
    FinishJson(json);
    return RESULT_OK;
}

/// The target is saved before the source, so that nothing is lost in between.
int Transfer(const CCommandCall& call, bool move)
{
    CXMLSettings source;
    CXMLSettings target;
    if (!(move ? LoadForChange(call, 0, source) : Load(call, 0, source)) ||
        !LoadOrMake(call, 1, target))
        return RESULT_FAILURE;
    const CString path = call.GetArgument(2);
    if (!source.KeyExists(path))
        return RESULT_NO;
    if (!target.CopyKey(source, path, move))
        return FailOn(FileArgument(call, 1), u"there is an element at " + path + u" already");
    const int result = Save(FileArgument(call, 1), target);
    return result == RESULT_OK && move ? Save(FileArgument(call, 0), source) : result;
}

int RunCopy(const CCommandCall& call)
{
    return Transfer(call, false);
}

int RunMove(const CCommandCall& call)
{
    return Transfer(call, true);
}

int RunFormat(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!LoadForChange(call, 0, settings))
        return RESULT_FAILURE;
    return Save(FileArgument(call, 0), settings);
}

int RunCheck(const CCommandCall& call)
{
    int result = RESULT_OK;
    for (std::size_t index = 0; index < call.GetArguments().size(); ++index)
    {
        const CString path = FileArgument(call, index);
        std::vector<CString> lines;
        if (!ReadLines(path, lines))
        {
            result = FailOn(path, u"the file cannot be read");
            continue;
        }
        const CXmlLook look = LookThroughXml(lines);
        for (const CXmlFault& fault : look.m_Faults)
            PrintError(Describe(path, fault));
        if (!look.m_Faults.empty())
            result = RESULT_FAILURE;
        else
        {
            CString line;
            line.Format(u"%s: %d elements", NativePath(path), look.m_Elements);
            PrintLine(line);
        }
    }
    return result;
}

} // namespace

std::vector<CCommand> XmlCommands()
{
    const CCommandArgument file = {"FILE", "a file of XML settings"};
    const CCommandArgument path = {"PATH", "names of elements: Layers\\Count"};
    const CCommandOption encodings = {"encodings", "N",
                                      "the sum of the encoding bits; 2 if not given"};
    const CCommandOption duplicates = {"duplicates", "", "add an element, though there is one"};
    const CCommandOption force = {"force", "",
                                  "also if a save loses comments or what is not well formed"};
    return {
        {"xml",
         "get",
         "Print one value",
         "Answers 1 if there is no such element.",
         {file, path},
         {encodings},
         &RunGet},
        {"xml",
         "set",
         "Store one value",
         "Makes the elements, and the file, where they are missing.",
         {file, path, {"VALUE", "what to store"}},
         {encodings, duplicates, force},
         &RunSet},
        {"xml",
         "list",
         "List the elements below one",
         "",
         {file, {"PATH", "names of elements; the top if not given", EArity::Optional}},
         {encodings},
         &RunList},
        {"xml",
         "delete",
         "Delete an element with all below it",
         "Answers 1 if there is none.",
         {file, path},
         {encodings, force},
         &RunDelete},
        {"xml",
         "find",
         "Print the value of the element whose attributes fit",
         "Answers 1 if none fits.",
         {file, {"PATH", "names, each with a test if wanted: 'pin id=3\\label lang=de'"}},
         {encodings},
         &RunFind},
        {"xml",
         "copy",
         "Copy an element with all below it to another file",
         "Refuses to write over an element that is there.",
         {{"SOURCE", "the file to copy from"}, {"TARGET", "the file to copy to"}, path},
         {encodings, force},
         &RunCopy},
        {"xml",
         "move",
         "Move an element with all below it to another file",
         "As 'xml copy', and the element is gone from the source.",
         {{"SOURCE", "the file to move from"}, {"TARGET", "the file to move to"}, path},
         {encodings, force},
         &RunMove},
        {"xml",
         "format",
         "Lay a file out anew",
         "One element a line, four blanks a level. A file that would lose something is refused.",
         {file},
         {encodings, force},
         &RunFormat},
        {"xml",
         "check",
         "Find where a file is not what it seems",
         "Names file, line and column of each element, tag or comment left open, each close tag of "
         "another name, and the first that closes nothing; ends with 3 if there is any.",
         {{"FILE", "a file of XML settings", EArity::Many}},
         {},
         &RunCheck},
    };
}

} // namespace utility
