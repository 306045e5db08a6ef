#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"
#include "settings/RegistryForms.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr int READABLE_TEXT = 1023; // units that a key gives back

/// Reads all forms; false, and told, if there is none or something is none.
bool ImportAll(CRegistryForms& forms, const CString& place)
{
    try
    {
        if (forms.Import())
            return true;
        PrintError(place + u": there are no forms");
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
        CString reason;
        reason.Format(u"%s: what follows form %d is no form", place, forms.GetCount());
        PrintError(reason);
    }
    return false;
}

/// Why a place could not give the form back; empty if it can.
CString FindObstacle(const CRegistryFormStruct& form, bool toFile)
{
    CString key;
    CString value;
    for (int index = 0; form.GetKeyAndValue(index, &key, &value); ++index)
    {
        if (key.IsEmpty() || value.IsEmpty())
            return u"an empty text in pair \"" + key + u"\" would be lost";
        if (toFile && (key.FindOneOf(u"\r\n") >= 0 || value.FindOneOf(u"\r\n") >= 0))
            return u"a line end in pair \"" + key + u"\" would end the form";
    }
    if (form.GetFormName().Find(u'|') >= 0)
        return u"its name holds \"|\"";
    if (!toFile && form.GetFormString().GetLength() > READABLE_TEXT)
        return u"it is longer than the 1023 characters that a key gives back";
    return CString();
}

bool CanHoldAll(const CRegistryForms& forms, bool toFile)
{
    for (int index = 0; index < forms.GetCount(); ++index)
    {
        const CRegistryFormStruct& form = forms.GetForm(index);
        const CString obstacle = FindObstacle(form, toFile);
        if (obstacle.IsEmpty())
            continue;
        PrintError(form.GetFormName() + u": " + obstacle + u"; nothing is written");
        return false;
    }
    return true;
}

int MoveAll(const CRegistryForms& from, CRegistryForms& to)
{
    for (int index = 0; index < from.GetCount(); ++index)
    {
        CRegistryFormStruct form = from.GetForm(index);
        to.AddForm(&form);
    }
    if (to.Export())
        return RESULT_OK;
    PrintError(u"the forms could not be written");
    return RESULT_FAILURE;
}

CString LocationOf(const CString& key)
{
    return CAppRegistry(key).GetKey();
}

int RunExport(const CCommandCall& call)
{
    CRegistryForms inKey(LocationOf(call.GetArgument(0)), false);
    CRegistryForms inFile(ClassicPath(ToUtf8(call.GetArgument(1).View())), true);
    if (!ImportAll(inKey, call.GetArgument(0)) || !CanHoldAll(inKey, true))
        return RESULT_FAILURE;
    return MoveAll(inKey, inFile);
}

/// One transaction, so that a store that refuses in between keeps none of the forms.
int RunImport(const CCommandCall& call)
{
    const CString path = ClassicPath(ToUtf8(call.GetArgument(0).View()));
    if (GetEntryKind(path) != EEntryKind::File)
    {
        PrintError(call.GetArgument(0) + u": the file cannot be read");
        return RESULT_FAILURE;
    }
    CRegistryForms inFile(path, true);
    CRegistryForms inKey(LocationOf(call.GetArgument(1)), false);
    if (!ImportAll(inFile, call.GetArgument(0)) || !CanHoldAll(inFile, false))
        return RESULT_FAILURE;
    CRegistryTransaction transaction(HKEY_CURRENT_USER);
    const int result = MoveAll(inFile, inKey);
    if (result != RESULT_OK || transaction.Commit())
        return result;
    PrintError(u"the forms could not be written");
    return RESULT_FAILURE;
}

} // namespace

std::vector<CCommand> RegistryFormCommands()
{
    const CCommandArgument key = {"KEY", "a key below the application's own"};
    const CCommandArgument file = {"FILE", "a file of registry forms, one a line"};
    return {
        {"form",
         "export",
         "Write the registry forms of a key to a file",
         "Replaces the file as a whole. A form that the file could not give back is named, and "
         "nothing is written.",
         {key, file},
         {},
         RunExport},
        {"form",
         "import",
         "Store the registry forms of a file in a key",
         "Forms of the same names are replaced, others stay. A form that the key could not give "
         "back is named, and nothing is stored.",
         {file, key},
         {},
         RunImport},
    };
}

} // namespace utility
