#include "text/TokenArray.h"

#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"

#include "support/FuzzCorpus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace
{

std::vector<std::string> Values(const CStringArray& array)
{
    std::vector<std::string> values;
    for (const CString& row : array)
        values.push_back(ToUtf8(row.View()));
    return values;
}

std::vector<std::string> Cut(const CString& text, bool trimQuoted = false)
{
    CStringArray tokens;
    const int count = StringToTokenArray(&text, &tokens, u',', u'"', trimQuoted);
    EXPECT_EQ(count, tokens.GetSize());
    return Values(tokens);
}

} // namespace

TEST(TokenArrayTest, TextIsCutAtSeparatorsOutsideQuotes)
{
    const struct
    {
        const char16_t* m_Text;
        std::vector<std::string> m_Tokens;
    } cases[] = {
        {u"", {}},
        {u"  \t", {}},
        {u"a", {"a"}},
        {u" a , b ", {"a", "b"}},
        {u"a,,b", {"a", "", "b"}},
        {u"a,b,", {"a", "b"}},
        {u",", {""}},
        {u"\"a,b\",c", {"a,b", "c"}},
        {u"a, \"b,c\" ,d", {"a", "\"b", "c\"", "d"}}, // a blank before the quote
        {u"\"a\"\",b\",c", {"a\",b", "c"}},
        {u"\"a\"b\",c", {"a\"b", "c"}}, // no separator behind that quote
        {u"\"\",x", {"", "x"}},
        {u"\"\"\"\"", {"\""}},
        {u"\"a,b", {"a,b"}}, // never closed
        {u"\"", {""}},
        {u"\" a \",b", {" a ", "b"}},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Text));
        EXPECT_THAT(Cut(row.m_Text), ElementsAreArray(row.m_Tokens));
    }
    EXPECT_THAT(Cut(u"\" a \", b", true), ElementsAre("a", "b"));
}

TEST(TokenArrayTest, ZeroSeparatorOrQuoteDoesNothing)
{
    const CString text = u"a,b";
    CString out = u"kept";
    CStringArray tokens;
    tokens.Add(u"x");

    EXPECT_EQ(StringToTokenArray(&text, &tokens, 0, u'"', false), 0);
    EXPECT_EQ(StringToTokenArray(&text, &tokens, u',', 0, false), 0);
    EXPECT_EQ(tokens.GetSize(), 1);
    EXPECT_EQ(TokenArrayToString(&out, &tokens, 0, u'"', 0, true), 0);
    EXPECT_EQ(TokenArrayToString(&out, &tokens, u',', 0, 0, true), 0);
    tokens.RemoveAll();
    EXPECT_EQ(TokenArrayToString(&out, &tokens, u',', u'"', 0, true), 0);
    EXPECT_EQ(out, u"kept");
}

TEST(TokenArrayTest, QuotedTokensReadBackExactly)
{
    CStringArray tokens;
    for (const char16_t* token : {u"a", u"", u" b ", u"c,d", u"\"", u"e\"\"f", u"\",\""})
        tokens.Add(token);
    CString text;

    EXPECT_EQ(TokenArrayToString(&text, &tokens, u',', u'"', 0, true), tokens.GetSize());

    EXPECT_EQ(text, u"\"a\",\"\",\" b \",\"c,d\",\"\"\"\",\"e\"\"\"\"f\",\"\"\",\"\"\",");
    EXPECT_EQ(Cut(text), Values(tokens));
}

TEST(TokenArrayTest, TokensAreAppendedWithTheirOwnClosingQuote)
{
    CStringArray tokens;
    tokens.Add(u"a");
    tokens.Add(u"b<c");
    CString text = u"list: ";

    EXPECT_EQ(TokenArrayToString(&text, &tokens, u';', u'<', u'>', true), 2);
    EXPECT_EQ(text, u"list: <a>;<b<<c>;");
    text.Empty();
    EXPECT_EQ(TokenArrayToString(&text, &tokens, u';', u'<', u'>', false), 2);
    EXPECT_EQ(text, u"a;b<c;");
}

TEST(TokenArrayTest, EmptyRowsGoAndBlankOnesOnWish)
{
    CStringArray array;
    for (const char16_t* row : {u"", u"a", u" \t", u"", u" b "})
        array.Add(row);

    EXPECT_EQ(RemoveEmptyStrings(&array, false), 2);
    EXPECT_THAT(Values(array), ElementsAre("a", " \t", " b "));
    EXPECT_EQ(RemoveEmptyStrings(&array, true), 1);
    EXPECT_THAT(Values(array), ElementsAre("a", " b "));
}

TEST(TokenArrayTest, FuzzCorpusIsWrittenAndReadBack)
{
    const std::vector<CString> corpus = ReadFuzzCorpus("TokenArray");
    EXPECT_GE(corpus.size(), 2U);
    for (const CString& text : corpus)
    {
        SCOPED_TRACE(ToUtf8(text.View()));
        CStringArray tokens;
        CString written;
        StringToTokenArray(&text, &tokens, u',', u'"', false);
        TokenArrayToString(&written, &tokens, u',', u'"', 0, true);
        EXPECT_EQ(Cut(written), Values(tokens));
    }
}

} // namespace utility
