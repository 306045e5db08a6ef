#include "database/DBFieldRules.h"
#include "platform/base/Encoding.h"
#include "text/numbers/Expression.h"
#include "text/numbers/RealNumber.h"
#include "text/numbers/SIUnit.h"

#include "utility/command/CommandTable.h"
#include "utility/db/map/ParseTypeName.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

/// The shortest text that reads back as the value.
CString NumberText(double value)
{
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return FromUtf8(std::string_view(digits.data(), end.ptr));
}

int RunEval(const CCommandCall& call)
{
    const CString text = call.GetArgument(0);
    double value = 0;
    const int index = EvaluateExpression(value, text, 0, u'.', false);
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"value");
        json.Number(value);
        json.Field(u"rest", text.Mid(index));
        json.EndObject();
        PrintLine(FromUtf8(json.GetText()));
    }
    else
    {
        PrintLine(NumberText(value));
    }
    if (index == text.GetLength())
        return RESULT_OK;
    PrintError(u"no part of the expression: " + text.Mid(index));
    return RESULT_NO;
}

int FailOnNumber(const CString& text)
{
    PrintError(u"not a number: " + text);
    return RESULT_FAILURE;
}

/// A number with an SI prefix behind it, such as "4.7k"; false if no number begins the text.
bool ReadValue(const CString& text, double& value)
{
    const int index = ReadRealNumber(value, text, 0, u'.', false);
    double factor = 1;
    ReadSIUnit(factor, text.Mid(index));
    value *= factor;
    return index > 0;
}

int RunNormalise(const CCommandCall& call)
{
    double value = 0;
    if (!ReadValue(call.GetArgument(0), value))
        return FailOnNumber(call.GetArgument(0));
    CString unit;
    value = NormaliseSIUnit(value, unit);
    if (!call.WantsJson())
    {
        PrintLine(unit.IsEmpty() ? NumberText(value) : NumberText(value) + u" " + unit);
        return RESULT_OK;
    }
    CJsonWriter json;
    json.BeginObject();
    json.Key(u"value");
    json.Number(value);
    json.Field(u"unit", unit);
    json.EndObject();
    PrintLine(FromUtf8(json.GetText()));
    return RESULT_OK;
}

/// The value as the field rules read it, and their result: 2 for letters that suit the kind, 1 for
/// others.
int RunSI(const CCommandCall& call)
{
    if (call.Has("normalise"))
        return RunNormalise(call);
    double value = 0;
    const int result = CDBFieldRules::GetNumericValue(call.GetArgument(0), value,
                                                      FindParseType(call.Get("as", u"any")));
    if (result == 0)
        return FailOnNumber(call.GetArgument(0));
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"value");
        json.Number(value);
        json.Key(u"result");
        json.Number(result);
        json.EndObject();
        PrintLine(FromUtf8(json.GetText()));
    }
    else
    {
        CString code;
        code.Format(u" %d", result);
        PrintLine(NumberText(value) + code);
    }
    return result == 2 ? RESULT_OK : RESULT_NO;
}

} // namespace

std::vector<CCommand> NumberCommands()
{
    CCommand eval{"eval"};
    eval.m_Summary = "Work out an arithmetic expression";
    eval.m_Help = "Numbers take . or , and an exponent; operators are + - * / and parentheses.\n"
                  "  utility eval '2+(1-3)*4'";
    eval.m_Arguments = {{"EXPRESSION", "The expression"}};
    eval.m_Run = RunEval;

    CCommand si{"si"};
    si.m_Summary = "Read a component value as engineers write it";
    si.m_Help =
        "Prints the value and 2, or 1 where its letters do not suit the kind: then the command\n"
        "ends with 1.\n"
        "  utility si 4k7\n"
        "  utility si 100n --as capacitor\n"
        "  utility si --normalise 4700";
    si.m_Arguments = {{"VALUE", "Such as 4k7, 4.7K, 100nF"}};
    si.m_Options = {{"as",
                     "KIND",
                     "What it is a value of; any if not given",
                     false,
                     {"capacitor", "resistor", "inductor", "any", "number"}},
                    {"normalise", "",
                     "Take the letter as an SI prefix and give the value in the row behind the "
                     "first that is large enough"}};
    si.m_Run = RunSI;
    return {eval, si};
}

} // namespace utility
