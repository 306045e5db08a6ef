#include "platform/base/Encoding.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"
#include "settings/ConfigurationFault.h"
#include "settings/export/SettingsExport.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"
#include "utility/settings/SettingsChange.h"

namespace utility
{

namespace
{

const char16_t* WordsOf(EConfigurationFault kind)
{
    switch (kind)
    {
    case EConfigurationFault::None:
    case EConfigurationFault::NoKey:
        return u"no key is named";
    case EConfigurationFault::KeyUnreadable:
        return u"there is no such key";
    case EConfigurationFault::CannotStand:
        return u"cannot stand in a configuration file";
    case EConfigurationFault::FileUnwritable:
        return u"the file cannot be written";
    case EConfigurationFault::FileUnreadable:
        return u"the file cannot be read";
    case EConfigurationFault::OtherProgram:
        return u"it is another program's";
    case EConfigurationFault::UnsoundSections:
        return u"it lacks a section or has one that stands for two keys";
    case EConfigurationFault::NoChecksum:
        return u"it has no sum, so it is not whole";
    case EConfigurationFault::WrongChecksum:
        return u"its sum is wrong, so it was altered";
    case EConfigurationFault::KeyUnwritable:
        break;
    }
    return u"the settings cannot be written";
}

const char16_t* WordsOf(ESettingsFault kind)
{
    switch (kind)
    {
    case ESettingsFault::None:
    case ESettingsFault::KeyUnreadable:
        return u"there is no such key";
    case ESettingsFault::KeyUnwritable:
        return u"the settings cannot be written";
    case ESettingsFault::CannotStand:
        return u"could not be given back as it is";
    case ESettingsFault::FileUnreadable:
        return u"the file cannot be read";
    case ESettingsFault::FileUnwritable:
        return u"the file cannot be written";
    case ESettingsFault::NoText:
        return u"this is no UTF-8";
    case ESettingsFault::OtherFormat:
        return u"this is no file of exported settings of this format";
    case ESettingsFault::NewerFormat:
        return u"is a version that is not known here";
    case ESettingsFault::OtherKey:
        return u"is the key that these settings are of, not the one they are to go to";
    case ESettingsFault::Unexpected:
        return u"is not expected here";
    case ESettingsFault::OpenEnd:
        return u"is not closed before the end of the file";
    case ESettingsFault::WrongClose:
        return u"closes what has another name";
    case ESettingsFault::BadName:
        return u"is no name of a key or value";
    case ESettingsFault::BadEscape:
        return u"this is no character's escape";
    case ESettingsFault::BadUnit:
        return u"a line end or control cannot stand in a text";
    case ESettingsFault::Twice:
        return u"stands here a second time";
    case ESettingsFault::UnknownType:
        return u"is no type of values";
    case ESettingsFault::BadValue:
        return u"has a value that is none of its type";
    case ESettingsFault::TooDeep:
        break;
    }
    return u"lies too deep: its path is longer than 2047 characters";
}

bool NeedsSubject(ESettingsFault kind)
{
    return kind == ESettingsFault::Unexpected || kind == ESettingsFault::OpenEnd;
}

/// "file:line:column: name words", with what there is of them.
int TellFault(const CString& file, const CSettingsFault& fault)
{
    CString text = file;
    if (fault.m_Line > 0)
        text.AppendFormat(u":%d:%d", fault.m_Line, fault.m_Column);
    text += u": ";
    if (!fault.m_Name.IsEmpty())
        text += u"\"" + fault.m_Name + u"\" ";
    else if (NeedsSubject(fault.m_Kind))
        text += u"this ";
    PrintError(text + WordsOf(fault.m_Kind));
    return RESULT_FAILURE;
}

int TellFault(const CString& failure)
{
    const CConfigurationFault& fault = GetConfigurationFault();
    const CString place =
        fault.m_Kind == EConfigurationFault::CannotStand ? fault.m_Place + u" " : CString();
    PrintError(failure + u": " + place + WordsOf(fault.m_Kind));
    return RESULT_FAILURE;
}

bool IsConfiguration(const CCommandCall& call)
{
    return call.Get("format", u"config") == u"config";
}

ESettingsFormat FormatOf(const CCommandCall& call)
{
    return call.Get("format") == u"xml" ? ESettingsFormat::Xml : ESettingsFormat::Form;
}

CString FileOf(const CCommandCall& call)
{
    return ClassicPath(ToUtf8(call.GetArgument(0).View()));
}

int RunSave(const CCommandCall& call)
{
    CAppRegistry key(call.GetArgument(1));
    if (IsConfiguration(call))
        return key.SaveToFile(FileOf(call), CString(), nullptr)
                   ? RESULT_OK
                   : TellFault(u"the settings could not be saved to " + call.GetArgument(0));
    CSettingsFault fault;
    return ExportSettings(HKEY_CURRENT_USER, key.GetKey(), FormatOf(call), FileOf(call), fault)
               ? RESULT_OK
               : TellFault(call.GetArgument(0), fault);
}

int Load(const CCommandCall& call, CAppRegistry& key)
{
    if (IsConfiguration(call))
        return key.LoadFromFile(FileOf(call), CString())
                   ? RESULT_OK
                   : TellFault(call.GetArgument(0) + u" was refused");
    CSettingsFault fault;
    return ImportSettings(HKEY_CURRENT_USER, key.GetKey(), FormatOf(call), FileOf(call), fault)
               ? RESULT_OK
               : TellFault(call.GetArgument(0), fault);
}

/// Loads within a transaction that is given up, so the report is what a load does and nobody sees
/// it done.
int TryLoad(const CCommandCall& call, CAppRegistry& key)
{
    CSettingsTree before;
    CSettingsTree after;
    int result = RESULT_OK;
    {
        const CRegistryTransaction abandoned(HKEY_CURRENT_USER);
        static_cast<void>(before.Read(HKEY_CURRENT_USER, key.GetKey())); // absent: all is new
        result = Load(call, key);
        if (result == RESULT_OK && !after.Read(HKEY_CURRENT_USER, key.GetKey()))
            result = TellFault(call.GetArgument(0), {ESettingsFault::KeyUnreadable, CString()});
    }
    if (result == RESULT_OK)
        PrintSettingsChanges(CompareSettings(before, after), call.WantsJson());
    return result;
}

int RunLoad(const CCommandCall& call)
{
    CAppRegistry key(call.GetArgument(1));
    return call.Has("dry-run") ? TryLoad(call, key) : Load(call, key);
}

} // namespace

std::vector<CCommand> SettingsFileCommands()
{
    const CCommandArgument key = {"KEY", "a key below the application's own", EArity::Optional};
    const CCommandOption format = {"format",
                                   "FORMAT",
                                   "config, with a sum, if not given; xml and form keep every type",
                                   false,
                                   {"config", "xml", "form"}};
    return {
        {"settings",
         "save",
         "Save settings to a file",
         "The file is replaced as a whole. A value that the format could not give back fails the "
         "save by name.",
         {{"FILE", "the file to write"}, key},
         {format},
         &RunSave,
         true},
        {"settings",
         "load",
         "Load settings from a file",
         "Merges the file into the settings, all of it or nothing; one with a wrong sum, or with "
         "anything\n"
         "that the format does not know, is refused.",
         {{"FILE", "the file to read"}, key},
         {format, {"dry-run", "", "Print what a load would change, and change nothing"}},
         &RunLoad,
         true},
    };
}

} // namespace utility
