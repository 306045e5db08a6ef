#include "FilterLine.h"

#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"

using namespace utility;

namespace partsdesk
{

struct CFilterLine::CTest
{
    const CColumn* m_Column = nullptr;
    int m_Operator = FILTER_CONTAINS;
    CString m_Value1;
    CString m_Value2;
};

namespace
{

struct CSign
{
    const char16_t* m_Text;
    int m_Operator;
};

// The longer signs first
constexpr CSign SIGNS[] = {
    {u"!=", FILTER_NOT_EQUAL},     {u">=", FILTER_GREATER_OR_EQUAL},
    {u"<=", FILTER_LESS_OR_EQUAL}, {u"!~", FILTER_NOT_CONTAINS},
    {u"=", FILTER_EQUAL},          {u">", FILTER_GREATER},
    {u"<", FILTER_LESS},           {u"~", FILTER_CONTAINS},
    {u"^", FILTER_BEGINS},
};

struct CKindType
{
    const char16_t* m_Kind;
    int m_Type;
};

constexpr CKindType KIND_TYPES[] = {
    {u"Resistor", PARSE_RESISTOR},
    {u"Capacitor", PARSE_CAPACITOR},
    {u"Inductor", PARSE_INDUCTOR},
};

const CSign* SignAt(const CString& line, int place)
{
    for (const CSign& sign : SIGNS)
    {
        if (line.View().substr(static_cast<std::size_t>(place)).starts_with(sign.m_Text))
            return &sign;
    }
    return nullptr;
}

/// Up to a blank or, for a column's name, a sign; what stands in quotes is taken whole.
CString TakeWord(const CString& line, int& place, bool isName)
{
    CString word;
    bool isQuoted = false;
    for (; place < line.GetLength(); ++place)
    {
        const char16_t unit = line[place];
        if (unit == u'"')
            isQuoted = !isQuoted;
        else if (!isQuoted && (unit == u' ' || (isName && SignAt(line, place))))
            break;
        else
            word += unit;
    }
    return word;
}

void SkipBlanks(const CString& line, int& place)
{
    while (place < line.GetLength() && line[place] == u' ')
        ++place;
}

} // namespace

bool CFilterLine::Parse(const CString& line, CDBClientFilterSet& filters, CString& reason) const
{
    std::vector<CTest> tests;
    int place = 0;
    for (SkipBlanks(line, place); place < line.GetLength(); SkipBlanks(line, place))
    {
        if (!ReadTest(line, place, tests.emplace_back(), reason))
            return false;
    }
    const int kindType = ParseTypeOfKind(tests);
    for (const CTest& test : tests)
    {
        filters.AddFilter(new CDBClientFilter(test.m_Column->m_Name, test.m_Operator, test.m_Value1,
                                              test.m_Value2, ParseTypeOf(test, kindType)));
    }
    return true;
}

bool CFilterLine::ReadTest(const CString& line, int& place, CTest& test, CString& reason) const
{
    const CString name = TakeWord(line, place, true);
    const CSign* sign = SignAt(line, place);
    test.m_Column = FindColumn(sign ? name : CString(u"Name"));
    if (!sign && !test.m_Column && !m_Columns.empty())
        test.m_Column = m_Columns.data();
    if (!test.m_Column)
    {
        reason.Format(u"There is no column \"%s\"", name);
        return false;
    }
    if (!sign)
    {
        test.m_Value1 = name;
        return true;
    }

    place += CString(sign->m_Text).GetLength();
    test.m_Operator = sign->m_Operator;
    test.m_Value1 = TakeWord(line, place, false);
    if (test.m_Value1.IsEmpty())
    {
        reason.Format(u"A value is missing behind \"%s%s\"", name, sign->m_Text);
        return false;
    }
    const int dots = test.m_Value1.Find(u"..");
    if (dots < 0 || (test.m_Operator != FILTER_EQUAL && test.m_Operator != FILTER_NOT_EQUAL))
        return true;
    test.m_Operator = test.m_Operator == FILTER_EQUAL ? FILTER_BETWEEN : FILTER_NOT_BETWEEN;
    test.m_Value2 = test.m_Value1.Mid(dots + 2);
    test.m_Value1 = test.m_Value1.Left(dots);
    return true;
}

const CColumn* CFilterLine::FindColumn(const CString& name) const
{
    for (const CColumn& column : m_Columns)
    {
        if (column.m_Name.CompareNoCase(name) == 0)
            return &column;
    }
    return nullptr;
}

/// What the tests say of the rows' kind; without a word, each value's unit decides.
int CFilterLine::ParseTypeOfKind(const std::vector<CTest>& tests)
{
    for (const CTest& test : tests)
    {
        if (test.m_Operator != FILTER_EQUAL || test.m_Column->m_Name.CompareNoCase(u"Kind") != 0)
            continue;
        for (const CKindType& kind : KIND_TYPES)
        {
            if (test.m_Value1.CompareNoCase(kind.m_Kind) == 0)
                return kind.m_Type;
        }
    }
    return PARSE_ANY;
}

int CFilterLine::ParseTypeOf(const CTest& test, int kindType)
{
    if (test.m_Column->m_IsNumeric)
        return PARSE_NUMBER;
    return test.m_Column->m_Name.CompareNoCase(u"Value") == 0 ? kindType : PARSE_NONE;
}

} // namespace partsdesk
