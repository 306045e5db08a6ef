#include "platform/base/NumberText.h"
#include "settings/AppRegistry.h"

#include "utility/command/Command.h"
#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr int READABLE_TEXT = 1023; // units that a stored text reads back with

/// A value as it is shown.
struct CShownValue
{
    CString m_Name;
    CString m_Type;
    CString m_Value;
};

/// "Key\Value": the key below the application's own, and the value's name behind the last
/// separator.
CAppRegistry KeyOf(const CString& path, CString& name)
{
    const int cut = path.ReverseFind(u'\\');
    name = path.Mid(cut + 1);
    return CAppRegistry(path.Left(cut < 0 ? 0 : cut));
}

CString BytesText(const std::vector<BYTE>& bytes)
{
    CString text;
    for (const BYTE byte : bytes)
        text.AppendFormat(u"%02X", byte);
    return text;
}

bool ReadShown(const CRegistry& key, const CString& name, CShownValue& shown)
{
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (!key.QueryValue(name, type, nullptr, size))
        return false;
    std::vector<BYTE> data(size + 2);
    if (!key.QueryValue(name, type, data.data(), size))
        return false;
    data.resize(size);
    std::int64_t number = 0;
    shown.m_Name = name;
    if (type == REG_SZ)
    {
        shown.m_Type = u"text";
        std::u16string units(size / 2, u'\0');
        std::copy_n(data.data(), units.size() * 2, reinterpret_cast<BYTE*>(units.data()));
        shown.m_Value = CString(std::u16string_view(units).substr(0, units.find(u'\0')));
    }
    else if ((type == REG_DWORD && size == 4) || (type == REG_QWORD && size == 8))
    {
        shown.m_Type = type == REG_DWORD ? u"number" : u"wide";
        std::copy_n(data.data(), size, reinterpret_cast<BYTE*>(&number));
        shown.m_Value.Format(u"%I64d",
                             type == REG_DWORD ? static_cast<std::int32_t>(number) : number);
    }
    else
    {
        shown.m_Type = u"bytes";
        shown.m_Value = BytesText(data);
    }
    return true;
}

void WriteShown(CJsonWriter& json, const CShownValue& value)
{
    json.BeginObject();
    json.Field(u"name", value.m_Name);
    json.Field(u"type", value.m_Type);
    json.Field(u"value", value.m_Value);
    json.EndObject();
}

int RunGet(const CCommandCall& call)
{
    CString name;
    const CAppRegistry key = KeyOf(call.GetArgument(0), name);
    CShownValue value;
    if (!ReadShown(key, name, value))
        return RESULT_NO;
    if (!call.WantsJson())
    {
        PrintLine(value.m_Value);
        return RESULT_OK;
    }
    CJsonWriter json;
    WriteShown(json, value);
    json.Flush();
    PrintBytes("\n");
    return RESULT_OK;
}

/// False for a text that is no even number of hexadecimal digits.
bool ReadBytes(const CString& text, std::vector<BYTE>& bytes)
{
    for (int at = 0; at + 1 < text.GetLength(); at += 2)
    {
        const CString pair = text.Mid(at, 2);
        const char16_t* end = nullptr;
        bytes.push_back(static_cast<BYTE>(wcstol(pair, &end, 16)));
        if (end != pair.GetString() + 2)
            return false;
    }
    return text.GetLength() % 2 == 0;
}

/// False for a text that is no whole number.
bool ReadNumber(const CString& text, std::int64_t& number)
{
    const char16_t* end = nullptr;
    number = _wcstoi64(text, &end, 10);
    return !text.IsEmpty() && *end == u'\0';
}

/// As programs show a truth, in any case of letters.
bool ReadTruth(const CString& text, bool& truth)
{
    truth = text == u"1" || text.CompareNoCase(u"true") == 0;
    return truth || text == u"0" || text.CompareNoCase(u"false") == 0;
}

/// False for a text that is no number.
bool ReadReal(const CString& text, double& number)
{
    const char16_t* end = nullptr;
    number = wcstod(text, &end);
    return !text.IsEmpty() && end != text.GetString() && *end == u'\0';
}

int StoreValue(CRegistry& key, const CString& name, const CString& type, const CString& value)
{
    std::int64_t number = 0;
    std::vector<BYTE> bytes;
    bool stored = false;
    bool truth = false;
    double real = 0;
    const bool sound = type == u"text"    ? true
                       : type == u"bytes" ? ReadBytes(value, bytes)
                       : type == u"bool"  ? ReadTruth(value, truth)
                       : type == u"real"  ? ReadReal(value, real)
                                          : ReadNumber(value, number);
    if (!sound)
    {
        PrintError(u"\"" + value + u"\" is no value of type " + type);
        return RESULT_USAGE;
    }
    if (type == u"text")
        stored = key.SetValue(name, value);
    else if (type == u"bool")
        stored = key.SetValue(name, truth);
    else if (type == u"real")
        stored = key.SetValue(name, real);
    else if (type == u"bytes")
        stored = key.SetValue(name, bytes.data(), static_cast<DWORD>(bytes.size()));
    else if (type == u"wide")
        stored = key.SetValue(name, number);
    else
        stored = key.SetValue(name, static_cast<DWORD>(number));
    if (!stored)
        PrintError(u"the value could not be stored");
    return stored ? RESULT_OK : RESULT_FAILURE;
}

int RunSet(const CCommandCall& call)
{
    CString name;
    CAppRegistry key = KeyOf(call.GetArgument(0), name);
    const CString value = call.GetArgument(1);
    const CString type = call.Get("type", u"text");
    const int result = StoreValue(key, name, type, value);
    if (result == RESULT_OK && type == u"text" && value.GetLength() > READABLE_TEXT)
        PrintError(
            u"warning: a text of more than 1023 characters is kept, yet programs cannot read it");
    return result;
}

int RunList(const CCommandCall& call)
{
    const CAppRegistry key(call.GetArgument(0));
    if (!key.KeyExists())
        return RESULT_NO;
    CJsonWriter json;
    CTextTable table;
    for (const char16_t* heading : {u"Name", u"Type", u"Value"})
        table.AddColumn(heading);
    json.BeginArray();
    const auto show = [&](const CShownValue& value)
    {
        WriteShown(json, value);
        table.AddRow({value.m_Name, value.m_Type, value.m_Value});
    };
    CString name;
    for (int index = 0; key.GetNext(name, index); ++index)
        show({name, u"key", CString()});
    CShownValue value;
    for (int index = 0; key.GetNextValue(name, index); ++index)
    {
        if (ReadShown(key, name, value))
            show(value);
    }
    json.EndArray();
    if (!call.WantsJson())
    {
        table.Print();
        return RESULT_OK;
    }
    json.Flush();
    PrintBytes("\n");
    return RESULT_OK;
}

int RunDelete(const CCommandCall& call)
{
    const CString path = call.GetArgument(0);
    if (call.Has("key"))
        return CAppRegistry(path).DeleteKey() ? RESULT_OK : RESULT_NO;
    CString name;
    CAppRegistry key = KeyOf(path, name);
    return key.KeyExists() && key.DeleteValue(name) ? RESULT_OK : RESULT_NO;
}

} // namespace

std::vector<CCommand> SettingsCommands()
{
    const CCommandArgument name = {"NAME",
                                   "the value, with the keys before it: Application\\Logging"};
    const CCommandArgument key = {"KEY", "a key below the application's own", EArity::Optional};
    return {
        {"settings",
         "get",
         "Print one value",
         "Answers 1 if there is no such value.",
         {name},
         {},
         &RunGet},
        {"settings",
         "set",
         "Store one value",
         "Whole numbers are decimal, real ones keep six decimals, bool is true or false, bytes "
         "are\n"
         "pairs of hexadecimal digits:\n"
         "  utility settings set --type number 'Application\\Logging' 1",
         {name, {"VALUE", "what to store"}},
         {{"type",
           "TYPE",
           "how to store it; text if not given",
           false,
           {"text", "number", "wide", "real", "bool", "bytes"}}},
         &RunSet},
        {"settings", "list", "List the keys and values of a key", "", {key}, {}, &RunList},
        {"settings",
         "delete",
         "Delete a value, or a key with all below it",
         "Answers 1 if there is nothing to delete.",
         {name},
         {{"key", "", "NAME is a key"}},
         &RunDelete},
    };
}

} // namespace utility
