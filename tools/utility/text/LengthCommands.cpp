#include "frame/AppError.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/Encoding.h"
#include "resources/StringIds.h"
#include "text/numbers/Expression.h"
#include "text/numbers/LengthUnit.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>
#include <cmath>

namespace utility
{

namespace
{

constexpr int MOST_PLACES = 15;

int PrintUnitsAsJson()
{
    CJsonWriter json;
    json.BeginArray();
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        json.BeginObject();
        json.Field(u"name", row.m_Name);
        json.Field(u"short", row.m_ShortName);
        json.Key(u"metric");
        json.Bool(row.m_Metric);
        json.Key(u"tenths of um");
        json.Number(static_cast<std::int64_t>(row.m_Length));
        json.EndObject();
    }
    json.EndArray();
    PrintLine(FromUtf8(json.GetText()));
    return RESULT_OK;
}

int PrintUnits(const CCommandCall& call)
{
    if (call.WantsJson())
        return PrintUnitsAsJson();
    CTextTable table;
    table.AddColumn(u"Name");
    table.AddColumn(u"Short");
    table.AddColumn(u"System");
    table.AddColumn(u"Tenths of um", CTextTable::EAlign::Right);
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        CString length;
        length.Format(u"%.0f", row.m_Length);
        table.AddRow({row.m_Name, row.m_ShortName, row.m_Metric ? u"metric" : u"imperial", length});
    }
    table.Print();
    return RESULT_OK;
}

/// Behind the number stands a unit or nothing; otherwise a second number would replace the first.
bool IsOneNumber(const CString& text)
{
    double value = 0;
    const std::u16string_view rest = text.View().substr(
        static_cast<std::size_t>(EvaluateExpression(value, text, 0, u'.', false)));
    return std::all_of(rest.begin(), rest.end(),
                       [](char16_t unit)
                       { return IsAlpha(unit) || IsSpace(unit) || unit == u'"'; });
}

bool HasSecondSign(const CString& text)
{
    char16_t before = 0;
    for (const char16_t unit : text.View())
    {
        const bool isSign = unit == u'-' || unit == u'+';
        if (isSign && (before == u'-' || before == u'+'))
            return true;
        if (!IsSpace(unit))
            before = unit;
    }
    return false;
}

/// What the library would read on a lenient road is refused here, by name: false, told.
bool ReadStrictly(const CString& typed, const CLengthUnit& target, double& value)
{
    CString text = typed;
    if (!CLengthUnit::ReadLengthValue(target, target, text, value))
        PrintError(CAppError::GetLastErrorString());
    else if (!std::isfinite(value))
        PrintError(u"not a finite length: " + typed);
    else if (HasSecondSign(typed))
        PrintError(u"a second sign: " + typed);
    else if (!IsOneNumber(typed))
        PrintError(u"two numbers, of which one would be lost: " + typed);
    else
        return true;
    return false;
}

int RunLength(const CCommandCall& call)
{
    if (call.Has("table"))
        return PrintUnits(call);
    if (call.GetArguments().empty())
    {
        PrintError(u"LENGTH is required, or --table");
        return RESULT_USAGE;
    }

    EBaseLengthUnit base = EBaseLengthUnit::NoUnit;
    const CString name = call.Get("to", u"mm");
    if (name.IsEmpty() || !CLengthUnit::MatchBaseUnit(name, base))
    {
        PrintError(CAppError::GetErrorString(IDS_BAD_LENGTH_UNIT, name));
        return RESULT_USAGE;
    }
    CLengthUnit unit(base, 1.0, call.Has("mark"), !call.Has("short"));
    if (call.Has("precision"))
        unit.SetPrecision(call.GetNumber("precision", 0));
    double value = 0;
    if (!ReadStrictly(call.GetArgument(0), unit, value))
        return RESULT_FAILURE;

    if (!call.WantsJson())
    {
        PrintLine(unit.Convert(value) + u" " + unit.GetShortName());
        return RESULT_OK;
    }
    CJsonWriter json;
    json.BeginObject();
    json.Key(u"value");
    json.Number(value);
    json.Field(u"text", unit.Convert(value));
    json.Field(u"unit", unit.GetName());
    json.EndObject();
    PrintLine(FromUtf8(json.GetText()));
    return RESULT_OK;
}

} // namespace

std::vector<CCommand> LengthCommands()
{
    CCommand length{"length"};
    length.m_Summary = "Read a length and give it in another unit";
    length.m_Help = "  utility length '2*3 mm' --to inch --precision 4";
    length.m_Arguments = {{"LENGTH", "A number or an expression, with a unit", EArity::Optional}};
    length.m_Options = {
        {"to", "UNIT", "The unit to give it in, and of numbers without one; preset: mm"},
        NumberOption("precision", "PLACES", "Decimal places, up to 15", {0, MOST_PLACES}),
        {"short", "", "Without zeros at the end"},
        {"mark", "", "Mark what was rounded by + or -"},
        {"table", "", "Print the units instead"}};
    length.m_Run = RunLength;
    return {length};
}

} // namespace utility
