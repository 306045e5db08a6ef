#include "settings/xml/XMLSettings.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"
#include "utility/xml/XmlChange.h"
#include "utility/xml/XmlFile.h"

namespace utility
{

namespace
{

int ResultOf(bool done)
{
    return done ? RESULT_OK : RESULT_FAILURE;
}

/// Loads the file named by the first argument; false, and told, if it cannot be read.
bool Load(const CCommandCall& call, CXMLSettings& settings)
{
    PrepareXml(call, settings);
    const CString path = XmlFileArgument(call, 0);
    return settings.LoadXML(path) || FailOnXmlFile(path, u"the file cannot be read");
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
    if (!Load(call, settings))
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
    CXmlChange file(call, 0);
    if (!file.LoadOrMake())
        return RESULT_FAILURE;
    file.GetSettings().SetValue(CString(), call.GetArgument(1), call.GetArgument(2));
    return ResultOf(file.Save());
}

int RunList(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!Load(call, settings))
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
    CXmlChange file(call, 0);
    if (!file.Load())
        return RESULT_FAILURE;
    if (!file.GetSettings().DeleteValue(CString(), call.GetArgument(1)))
        return RESULT_NO;
    return ResultOf(file.Save());
}

int RunFind(const CCommandCall& call)
{
    CXMLSettings settings;
    if (!Load(call, settings))
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

/// Copies the element and saves the target.
int CopyTo(const CCommandCall& call, const CXMLSettings& source, bool move)
{
    CXmlChange target(call, 1);
    if (!target.LoadOrMake())
        return RESULT_FAILURE;
    const CString path = call.GetArgument(2);
    if (!target.GetSettings().CopyKey(source, path, move))
        return ResultOf(FailOnXmlFile(XmlFileArgument(call, 1),
                                      u"there is an element at " + path + u" already"));
    return ResultOf(target.Save());
}

int RunCopy(const CCommandCall& call)
{
    CXMLSettings source;
    if (!Load(call, source))
        return RESULT_FAILURE;
    return source.KeyExists(call.GetArgument(2)) ? CopyTo(call, source, false) : RESULT_NO;
}

/// The target is saved before the source, so that nothing is lost in between.
int RunMove(const CCommandCall& call)
{
    CXmlChange source(call, 0);
    if (!source.Load())
        return RESULT_FAILURE;
    if (!source.GetSettings().KeyExists(call.GetArgument(2)))
        return RESULT_NO;
    const int result = CopyTo(call, source.GetSettings(), true);
    return result == RESULT_OK ? ResultOf(source.Save()) : result;
}

int RunFormat(const CCommandCall& call)
{
    CXmlChange file(call, 0);
    return ResultOf(file.Load() && file.Save());
}

} // namespace

std::vector<CCommand> XmlCommands()
{
    const CCommandArgument file = {"FILE", "a file of XML settings"};
    const CCommandArgument path = {"PATH", "names of elements: Layers\\Count"};
    const CCommandOption encodings =
        NumberOption("encodings", "N", "the sum of the encoding bits; 2 if not given");
    const CCommandOption duplicates = {"duplicates", "", "add an element, though there is one"};
    const CCommandOption force = {"force", "",
                                  "also if a save loses comments, what is not well formed, or what "
                                  "somebody else wrote"};
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
    };
}

} // namespace utility
