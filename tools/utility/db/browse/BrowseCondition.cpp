#include "utility/db/browse/BrowseCondition.h"

#include "database/FilterOperators.h"

namespace utility
{

namespace
{

constexpr char16_t AND[] = u" and ";

constexpr struct
{
    const char16_t* m_Words;
    int m_Operator;
} SHORT_OPERATORS[] = {
    {u"=", FILTER_EQUAL},       {u"!=", FILTER_NOT_EQUAL},
    {u">", FILTER_GREATER},     {u">=", FILTER_GREATER_OR_EQUAL},
    {u"<", FILTER_LESS},        {u"<=", FILTER_LESS_OR_EQUAL},
    {u"begins", FILTER_BEGINS}, {u"not between", FILTER_NOT_BETWEEN},
};

bool IsSign(char16_t unit)
{
    return unit == u'=' || unit == u'!' || unit == u'<' || unit == u'>';
}

/// Whether the text begins with those words, and another word or a sign follows.
bool BeginsWith(const CString& text, const CString& words)
{
    const int length = words.GetLength();
    if (length == 0 || text.Left(length).CompareNoCase(words) != 0)
        return false;
    const bool isLast = text.GetLength() == length;
    return isLast || IsSign(words[length - 1]) || IsSign(text[length]) || text[length] == u' ';
}

/// Takes the heading or name of a column off the text, the longest that fits; -1 if none does.
int TakeColumn(CString& text, const std::vector<CBrowseColumn>& columns)
{
    int longest = -1;
    int length = 0;
    const auto offer = [&](const CString& name, std::size_t place)
    {
        if (name.GetLength() > length && BeginsWith(text, name))
        {
            longest = static_cast<int>(place);
            length = name.GetLength();
        }
    };
    for (std::size_t place = 0; place < columns.size(); place++)
        offer(columns[place].m_Heading, place);
    for (std::size_t place = 0; place < columns.size(); place++)
        offer(columns[place].m_Name, place);
    text = text.Mid(length).TrimLeft();
    return longest;
}

/// Takes an operator off the text, the longest that fits; -1 if none does.
int TakeOperator(CString& text)
{
    int longest = -1;
    int length = 0;
    const auto offer = [&](const CString& words, int op)
    {
        if (words.GetLength() > length && BeginsWith(text, words))
        {
            longest = op;
            length = words.GetLength();
        }
    };
    for (int op = 0; op < FILTER_OPERATOR_COUNT; op++)
        offer(GetFilterOperatorName(op), op);
    for (const auto& row : SHORT_OPERATORS)
        offer(row.m_Words, row.m_Operator);
    text = text.Mid(length).TrimLeft();
    return longest;
}

/// Parts the two values of a range; the second is empty if there is only one.
void TakeRange(const CString& text, CQueryTest& test)
{
    CString lower = text;
    lower.MakeLower();
    const int word = lower.Find(AND);
    const int cut = word >= 0 ? word : text.Find(u' ');
    test.m_Value1 = cut < 0 ? text : text.Left(cut);
    test.m_Value2 = cut < 0 ? CString() : text.Mid(word >= 0 ? cut + 5 : cut + 1);
    test.m_Value1.Trim();
    test.m_Value2.Trim();
}

} // namespace

int FindBrowseColumn(const std::vector<CBrowseColumn>& columns, const CString& name)
{
    for (const auto member : {&CBrowseColumn::m_Heading, &CBrowseColumn::m_Name})
        for (std::size_t place = 0; place < columns.size(); place++)
            if ((columns[place].*member).CompareNoCase(name) == 0)
                return static_cast<int>(place);
    return -1;
}

bool ReadBrowseCondition(const CString& words, const std::vector<CBrowseColumn>& columns,
                         CBrowseCondition& condition, CString& fault)
{
    CBrowseCondition read;
    read.m_Words = words;
    read.m_Words.Trim();
    CString rest = read.m_Words;
    const int place = TakeColumn(rest, columns);
    const int op = place < 0 ? -1 : TakeOperator(rest);
    if (op < 0)
    {
        condition = read;
        return true;
    }
    const CBrowseColumn& column = columns[static_cast<std::size_t>(place)];
    read.m_Column = place;
    read.m_Test = {column.m_Name, op, rest, CString()};
    if (IsRangeOperator(op))
        TakeRange(rest, read.m_Test);
    fault = IsRangeOperator(op) && read.m_Test.m_Value2.IsEmpty()
                ? CString(u"a range takes two values, as in: between 4k7 10k")
                : FindTestFault(read.m_Test, column.m_ParseType);
    if (!fault.IsEmpty())
        return false;
    condition = read;
    return true;
}

} // namespace utility
