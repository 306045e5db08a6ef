#include "platform/base/Encoding.h"
#include "text/numbers/Expression.h"
#include "text/numbers/RealNumber.h"
#include "text/numbers/SIUnit.h"

#include "CommandTable.h"
#include "ToolOutput.h"

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

/// A number with a multiplier behind it, such as "4.7k"; false if no number begins the text.
bool ReadValue(const CString& text, double& value)
{
    const int index = ReadRealNumber(value, text, 0, u'.', false);
    double factor = 1;
    ReadSIUnit(factor, text.Mid(index));
    value *= factor;
    return index > 0;
}

int RunSI(const CCommandCall& call)
{
    double value = 0;
    if (!ReadValue(call.GetArgument(0), value))
    {
        PrintError(u"not a number: " + call.GetArgument(0));
        return RESULT_FAILURE;
    }
    CString unit;
    if (call.Has("normalise"))
        value = NormaliseSIUnit(value, unit);
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"value");
        json.Number(value);
        json.Field(u"unit", unit);
        json.EndObject();
        PrintLine(FromUtf8(json.GetText()));
        return RESULT_OK;
    }
    PrintLine(unit.IsEmpty() ? NumberText(value) : NumberText(value) + u" " + unit);
    return RESULT_OK;
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
    si.m_Summary = "Read a value with an SI multiplier";
    si.m_Help = "  utility si 4.7k\n  utility si --normalise 4700";
    si.m_Arguments = {{"VALUE", "A number with a multiplier behind it, such as 4.7k"}};
    si.m_Options = {{"normalise", "",
                     "Give the value in the row behind the first that is large "
                     "enough"}};
    si.m_Run = RunSI;
    return {eval, si};
}

} // namespace utility
