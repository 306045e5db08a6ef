#include "utility/db/query/QueryOptions.h"

#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "platform/base/CharacterClass.h"

#include "utility/output/ToolOutput.h"

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
    if (!IsRangeOperator(test.m_Operator))
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
        const std::optional<CColumnRule> rule = ReadColumnRule(word);
        if (!rule)
            return Refuse(u"--parse '" + word + u"': it takes " + COLUMN_RULE_FORM);
        options.m_ParseTypes.push_back(*rule);
    }
    return true;
}

bool AreTestsSound(const CQueryOptions& options)
{
    for (const CQueryTest& test : options.m_Tests)
    {
        const CString fault = FindTestFault(test, options.GetParseType(test.m_Column));
        if (!fault.IsEmpty())
            return Refuse(u"--where on '" + test.m_Column + u"': " + fault);
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
    for (const std::vector<CColumnRule>* list : {&m_Rules, &m_ParseTypes})
        for (const CColumnRule& rule : *list)
            if (rule.m_Column.CompareNoCase(column) == 0)
                type = rule.m_Type;
    return type;
}

std::optional<CQueryOptions> ReadQueryOptions(const CCommandCall& call,
                                              const std::vector<CColumnRule>& rules)
{
    CQueryOptions options;
    options.m_Rules = rules;
    options.m_Table = call.GetArgument(0);
    options.m_Sort = call.Get("sort");
    options.m_IsDescending = call.Has("descending");
    options.m_Limit = call.GetNumber("limit", -1);
    ReadColumns(call, options.m_Columns);
    if (!ReadTests(call, options) || !ReadPatterns(call, options) ||
        !ReadParseTypes(call, options) || !AreTestsSound(options))
        return std::nullopt;
    return options;
}

} // namespace utility
