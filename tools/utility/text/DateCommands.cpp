#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/system/Clock.h"
#include "text/time/DateText.h"
#include "text/time/TimeConversion.h"

#include "utility/command/Command.h"
#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>
#include <string_view>

namespace utility
{

namespace
{

/// A point in time in one of the forms that are shown.
struct CDateForm
{
    CString m_Name;
    CString m_Value;
};

/// The fields as they are shown: of the user's zone or as they stand.
SYSTEMTIME ShownFields(std::int64_t count, bool toLocal)
{
    const SYSTEMTIME utc = ConvertInt64ToSystemTime(count);
    SYSTEMTIME shown = utc;
    return toLocal && SystemTimeToTzSpecificLocalTime(utc, shown) ? shown : utc;
}

CString IsoText(const SYSTEMTIME& fields, bool isLocal)
{
    CString text = ConvertSystemTimeToPgDateString(fields);
    text.SetAt(10, u'T');
    return isLocal ? text : text + u'Z';
}

CString NumberText(std::int64_t value)
{
    CString text;
    text.Format(u"%I64d", value);
    return text;
}

std::vector<CDateForm> AllForms(std::int64_t count, const CString& pattern, bool toLocal)
{
    const SYSTEMTIME fields = ShownFields(count, toLocal);
    const CString display =
        pattern.IsEmpty() ? GetDefaultDatePattern() + GetTimePattern() : pattern;
    return {
        {u"display", ConvertSystemTimeToMvtDateString(fields, display)},
        {u"database", ConvertSystemTimeToPgDateString(fields)},
        {u"function",
         ConvertTimeStampStructToPgFunctionString(ConvertSystemTimeToTimeStampStruct(fields))},
        {u"iso", IsoText(fields, toLocal)},
        {u"filetime", NumberText(count)},
        {u"unix", NumberText((count - FILETIME_OF_1970) / FILETIME_PER_SECOND)},
    };
}

void PrintJson(const std::vector<CDateForm>& forms)
{
    CJsonWriter json;
    json.BeginObject();
    for (const CDateForm& form : forms)
        json.Field(form.m_Name, form.m_Value);
    json.EndObject();
    PrintLine(FromUtf8(json.GetText()));
}

void PrintTable(const std::vector<CDateForm>& forms)
{
    CTextTable table;
    table.AddColumn(u"Form");
    table.AddColumn(u"Value");
    for (const CDateForm& form : forms)
        table.AddRow({form.m_Name, form.m_Value});
    table.Print();
}

int Show(const CCommandCall& call, std::int64_t count)
{
    std::vector<CDateForm> forms = AllForms(count, call.Get("pattern"), call.Has("local"));
    const CString wanted = call.Get("as");
    if (!wanted.IsEmpty())
        std::erase_if(forms, [&](const CDateForm& form) { return form.m_Name != wanted; });

    if (call.WantsJson())
        PrintJson(forms);
    else if (!wanted.IsEmpty())
        PrintLine(forms.front().m_Value);
    else
        PrintTable(forms);
    return RESULT_OK;
}

bool IsOrder(const CString& order)
{
    TIMESTAMP_STRUCT
    stamp{}; // a record holds the year 1, so every order reads this as the same date
    return ConvertDateTimeStringToTimeStampStruct(u"01/01/01 00:00:00", stamp, order);
}

/// A number alone is a FILETIME count, anything else a date and time in the order asked for.
bool ReadDate(const CString& text, const CString& order, std::int64_t& count)
{
    const std::u16string_view units = text.View();
    if (units.empty() || !std::all_of(units.begin(), units.end(), IsDigit))
        return ConvertDateTimeStringToI64(text, count, order);

    count = _wtoi64(text);
    return true;
}

int RunNow(const CCommandCall& call)
{
    return Show(call, ConvertFileTimeToInt64(CoFileTimeNow()));
}

int RunConvert(const CCommandCall& call)
{
    const CString order = call.Get("order", GetDefaultDateOrder());
    if (!IsOrder(order))
    {
        PrintError(u"the order must name D, M and Y once each, not \"" + order + u"\"");
        return RESULT_USAGE;
    }
    const CString text = call.GetArgument(0);
    std::int64_t count = 0;
    if (!ReadDate(text, order, count))
    {
        PrintError(u"\"" + text + u"\" is no date and time in the order " + order);
        return RESULT_FAILURE;
    }
    return Show(call, count);
}

std::vector<CCommandOption> ShowOptions()
{
    return {{"as",
             "FORM",
             "Show this form alone",
             false,
             {"display", "database", "function", "iso", "filetime", "unix"}},
            {"pattern", "PATTERN", "Pattern of the display form, as \"%1!02d!.%2!02d!.%3!04d!\""},
            {"local", "", "Take the time for UTC and show it in the user's zone"}};
}

CCommand NowCommand()
{
    return {"date",
            "now",
            "The present in every form",
            "Shown in UTC unless --local is given:\n\n    utility date now --as iso",
            {},
            ShowOptions(),
            RunNow};
}

CCommand ConvertCommand()
{
    CCommand command{"date",
                     "convert",
                     "A date and time in every form",
                     "TEXT is three date numbers in the order asked for, with any one character "
                     "between two, a blank and the time; behind its seconds may stand a character "
                     "and whole milliseconds. A number alone is a count of 100 ns since 1601.\n\n"
                     "    utility date convert '31/12/2024 23:59:58' --as database\n"
                     "    utility date convert '12/31/2024 23:59:58' --order MDY",
                     {{"TEXT", "The date and time, or a count"}},
                     ShowOptions(),
                     RunConvert};
    command.m_Options.push_back({"order", "ORDER", "Order of the numbers: D, M and Y once each"});
    return command;
}

} // namespace

std::vector<CCommand> DateCommands()
{
    return {NowCommand(), ConvertCommand()};
}

} // namespace utility
