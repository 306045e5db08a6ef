#include "QueryOptions.h"

#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "platform/base/CharacterClass.h"

#include "ParseTypeName.h"
#include "ToolOutput.h"

namespace utility
{

namespace
{

bool Refuse(const CString& reason)
{
    PrintError(reason);
    return false;
}

/// Takes what stands before the first separator off the text; all of it where there is none.
CString TakePiece(CString& text, char16_t separator)
{
    const int place = text.Find(separator);
    const CString piece = place < 0 ? text : text.Left(place);
    text = place < 0 ? CString() : text.Mid(place + 1);
    return piece;
}

int FindOperator(const CString& name)
{
    for (int op = 0; op < FILTER_OPERATOR_COUNT; op++)
        if (name.CompareNoCase(GetFilterOperatorName(op)) == 0)
            return op;
    return -1;
}

CString ListOperators()
{
    CString list;
    for (int op = 0; op < FILTER_OPERATOR_COUNT; op++)
        list += (op == 0 ? u"'" : u", '") + GetFilterOperatorName(op) + u"'";
    return list;
}

bool IsRange(int op)
{
    return op == FILTER_BETWEEN || op == FILTER_NOT_BETWEEN;
}

bool IsTextOnly(int op)
{
    return op == FILTER_BEGINS || op == FILTER_CONTAINS || op == FILTER_NOT_BEGINS ||
           op == FILTER_NOT_CONTAINS;
}

bool ReadTest(const CString& word, CQueryTest& test)
{
    CString rest = word;
    test.m_Column = TakePiece(rest, u'|');
    const bool hasOperator = !rest.IsEmpty();
    const CString name = TakePiece(rest, u'|');
    test.m_Operator = FindOperator(name);
    if (test.m_Column.IsEmpty() || !hasOperator)
        return Refuse(u"--where '" + word + u"': it takes 'COLUMN|OPERATOR|VALUE'");
    if (test.m_Operator < 0)
        return Refuse(u"--where '" + word + u"': there is no operator '" + name + u"'; there are " +
                      ListOperators());
    if (!IsRange(test.m_Operator))
    {
        test.m_Value1 = rest;
        return true;
    }
    test.m_Value1 = TakePiece(rest, u'|');
    test.m_Value2 = rest;
    return !rest.IsEmpty() || Refuse(u"--where '" + word + u"': a range takes two values: '" +
                                     test.m_Column + u'|' + name + u"|FROM|TO'");
}

bool ReadTests(const CCommandCall& call, CQueryOptions& options)
{
    for (const CString& word : call.GetAll("where"))
        if (!ReadTest(word, options.m_Tests.emplace_back()))
            return false;
    return true;
}

bool ReadPatterns(const CCommandCall& call, CQueryOptions& options)
{
    for (const CString& word : call.GetAll("match"))
    {
        CString rest = word;
        const CString column = TakePiece(rest, u'|');
        if (column.IsEmpty() || column.GetLength() == word.GetLength())
            return Refuse(u"--match '" + word + u"': it takes 'COLUMN|PATTERN'");
        options.m_Patterns.push_back({column, rest});
    }
    return true;
}

bool ReadParseTypes(const CCommandCall& call, CQueryOptions& options)
{
    for (const CString& word : call.GetAll("parse"))
    {
        const int equals = word.ReverseFind(u'=');
        const int type = FindParseType(word.Mid(equals + 1));
        if (equals < 1 || type < 0)
            return Refuse(
                u"--parse '" + word +
                u"': it takes COLUMN=TYPE, the type capacitor, resistor, inductor, any or number");
        options.m_ParseTypes.push_back({word.Left(equals), type});
    }
    return true;
}

/// A test whose own value has no number would just match nothing; so would letters of another kind.
bool IsNumberOfRule(const CString& value, const CQueryTest& test, int parseType)
{
    double number = 0;
    const int result = CDBFieldRules::GetNumericValue(value, number, parseType);
    const CString where = u"--where on '" + test.m_Column + u"': '" + value + u"' is no number";
    if (result == 0)
        return Refuse(parseType == PARSE_NONE ? where
                                              : where + u" as " + GetParseTypeName(parseType));
    if (result == 1 && parseType != PARSE_NONE)
        return Refuse(u"--where on '" + test.m_Column + u"': the letters of '" + value +
                      u"' do not suit " + GetParseTypeName(parseType));
    return true;
}

bool AreValuesNumbers(const CQueryOptions& options)
{
    for (const CQueryTest& test : options.m_Tests)
    {
        const int parseType = options.GetParseType(test.m_Column);
        const bool isRange = IsRange(test.m_Operator);
        if (IsTextOnly(test.m_Operator) || (parseType == PARSE_NONE && !isRange))
            continue;
        if (!IsNumberOfRule(test.m_Value1, test, parseType) ||
            (isRange && !IsNumberOfRule(test.m_Value2, test, parseType)))
            return false;
    }
    return true;
}

void ReadColumns(const CCommandCall& call, std::vector<CString>& columns)
{
    const CString list = call.Get("columns");
    int place = 0;
    for (CString name = list.Tokenize(u",", place); place >= 0; name = list.Tokenize(u",", place))
        columns.push_back(name.Trim());
}

} // namespace

int CQueryOptions::GetParseType(const CString& column) const
{
    int type = PARSE_NONE;
    for (const CQueryParse& parse : m_ParseTypes)
        if (parse.m_Column.CompareNoCase(column) == 0)
            type = parse.m_Type;
    return type;
}

std::optional<CQueryOptions> ReadQueryOptions(const CCommandCall& call)
{
    CQueryOptions options;
    options.m_Table = call.GetArgument(0);
    options.m_Sort = call.Get("sort");
    options.m_IsDescending = call.Has("descending");
    options.m_Limit = call.GetNumber("limit", -1);
    ReadColumns(call, options.m_Columns);
    if (!ReadTests(call, options) || !ReadPatterns(call, options) ||
        !ReadParseTypes(call, options) || !AreValuesNumbers(options))
        return std::nullopt;
    return options;
}

} // namespace utility
