#include "platform/base/String.h"

#include "platform/base/object/InvalidArgException.h"
#include "resources/StringIds.h"

#include <gtest/gtest.h>

#include <string>

using namespace utility;

namespace
{

std::u16string Text(const CString& text)
{
    return std::u16string(text.View());
}

bool RaisesInvalidArg(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (CInvalidArgException* exception)
    {
        exception->Delete();
        return true;
    }
    return false;
}

} // namespace

TEST(StringTest, IsOnePointerWide)
{
    EXPECT_EQ(sizeof(CString), sizeof(void*));
}

TEST(StringTest, TakesNullForTheEmptyText)
{
    const char16_t* const null = nullptr;
    CString text = null;
    text += null;
    text.Insert(0, null);

    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(text == null);
    EXPECT_EQ(text.Compare(null), 0);
    EXPECT_EQ(text.Find(null), 0);
    EXPECT_EQ(text.GetString()[0], u'\0');
    EXPECT_TRUE(CString(static_cast<const char*>(nullptr)).IsEmpty());
}

TEST(StringTest, KeepsUnitsBehindAZeroUnit)
{
    CString text(u"a\0b", 3);
    text += std::u16string_view(u"\0c", 2);

    EXPECT_EQ(Text(text), std::u16string(u"a\0b\0c", 5));
    EXPECT_FALSE(text == u"a");
}

TEST(StringTest, CopiesPartWhenOneIsChanged)
{
    const CString original = u"amplifier";
    const struct
    {
        const char* m_Name;
        void (*m_Change)(CString&);
    } changes[] = {
        {"SetAt",
         [](CString& text)
         {
             text.SetAt(0, u'x');
         }},
        {"+=",
         [](CString& text)
         {
             text += u'x';
         }},
        {"MakeUpper",
         [](CString& text)
         {
             text.MakeUpper();
         }},
        {"Delete",
         [](CString& text)
         {
             text.Delete(1, 2);
         }},
        {"Insert",
         [](CString& text)
         {
             text.Insert(2, u"xx");
         }},
        {"Remove",
         [](CString& text)
         {
             text.Remove(u'i');
         }},
        {"Replace unit",
         [](CString& text)
         {
             text.Replace(u'i', u'x');
         }},
        {"Replace text",
         [](CString& text)
         {
             text.Replace(u"li", u"");
         }},
        {"TrimLeft",
         [](CString& text)
         {
             text.TrimLeft(u'a');
         }},
        {"TrimRight",
         [](CString& text)
         {
             text.TrimRight(u'r');
         }},
        {"GetBuffer",
         [](CString& text)
         {
             text.GetBuffer()[0] = u'x';
         }},
        {"= view",
         [](CString& text)
         {
             text = std::u16string_view(u"x");
         }},
    };
    for (const auto& change : changes)
    {
        SCOPED_TRACE(change.m_Name);
        CString copy = original;
        ASSERT_EQ(copy.GetString(), original.GetString());

        change.m_Change(copy);

        EXPECT_EQ(Text(original), u"amplifier");
        EXPECT_NE(copy, original);
    }
}

TEST(StringTest, MovedFromTextIsEmptyAndUsable)
{
    CString from = u"text";
    const char16_t* units = from.GetString();
    CString to = std::move(from);
    from = u"again"; // NOLINT(bugprone-use-after-move)

    EXPECT_EQ(to.GetString(), units);
    EXPECT_EQ(Text(from), u"again");
}

TEST(StringTest, TakesPiecesOfItself)
{
    CString text = u"abcdef";
    text += text;
    EXPECT_EQ(Text(text), u"abcdefabcdef");
    text += text.View().substr(9);
    EXPECT_EQ(Text(text), u"abcdefabcdefdef");
    text.Insert(1, text.GetString() + 12);
    EXPECT_EQ(Text(text), u"adefbcdefabcdefdef");
    text = text.GetString() + 15;
    EXPECT_EQ(Text(text), u"def");
    text.Replace(u"e", text);
    EXPECT_EQ(Text(text), u"ddeff");
    text.Format(u"%s-%s", text, text);
    EXPECT_EQ(Text(text), u"ddeff-ddeff");
}

TEST(StringTest, AppendingMovesTheBlockRarely)
{
    CString text;
    int moves = 0;
    const char16_t* units = nullptr;
    for (int i = 0; i < 100000; ++i)
    {
        text += u'x';
        moves += text.GetString() != units;
        units = text.GetString();
    }
    EXPECT_EQ(text.GetLength(), 100000);
    EXPECT_LT(moves, 40);
}

TEST(StringTest, IndexOutOfBoundsRaises)
{
    CString text = u"ab";
    EXPECT_EQ(text[2], u'\0');
    const struct
    {
        const char* m_Name;
        std::function<void()> m_Call;
    } calls[] = {
        {"GetAt -1",
         [&]
         {
             text.GetAt(-1);
         }},
        {"[] behind the terminator",
         [&]
         {
             static_cast<void>(text[3]);
         }},
        {"SetAt -1",
         [&]
         {
             text.SetAt(-1, u'x');
         }},
        {"SetAt on the terminator",
         [&]
         {
             text.SetAt(2, u'x');
         }},
    };
    for (const auto& call : calls)
    {
        SCOPED_TRACE(call.m_Name);
        EXPECT_TRUE(RaisesInvalidArg(call.m_Call));
        EXPECT_EQ(Text(text), u"ab");
    }
}

TEST(StringTest, PartsAreClippedToTheText)
{
    const CString text = u"abcdef";
    const struct
    {
        int m_First;
        int m_Count;
        std::u16string m_Mid;
    } rows[] = {{0, 6, u"abcdef"},
                {2, 2, u"cd"},
                {-3, 2, u"ab"},
                {4, 2147483647, u"ef"},
                {6, 1, u""},
                {99, 1, u""},
                {2, -1, u""},
                {2, 0, u""},
                {5, 1, u"f"},
                {0, -5, u""},
                {-2147483647, 3, u"abc"}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << "Mid(" << row.m_First << ", " << row.m_Count << ")");
        EXPECT_EQ(Text(text.Mid(row.m_First, row.m_Count)), row.m_Mid);
    }
    EXPECT_EQ(Text(text.Left(2)), u"ab");
    EXPECT_EQ(Text(text.Left(-1)), u"");
    EXPECT_EQ(Text(text.Right(2)), u"ef");
    EXPECT_EQ(Text(text.Right(99)), u"abcdef");
    EXPECT_EQ(Text(text.SpanIncluding(u"bca")), u"abc");
    EXPECT_EQ(Text(text.SpanExcluding(u"fd")), u"abc");
    EXPECT_EQ(Text(text.SpanExcluding(u"x")), u"abcdef");
}

TEST(StringTest, FindsFromAStartOn)
{
    const CString text = u"one, two, one";
    EXPECT_EQ(text.Find(u'o'), 0);
    EXPECT_EQ(text.Find(u'o', 1), 7);
    EXPECT_EQ(text.Find(u'o', -5), 0);
    EXPECT_EQ(text.Find(u'o', 99), -1);
    EXPECT_EQ(text.Find(u"one"), 0);
    EXPECT_EQ(text.Find(u"one", 1), 10);
    EXPECT_EQ(text.Find(u"ones"), -1);
    EXPECT_EQ(text.Find(u"", 3), 3);
    EXPECT_EQ(text.Find(u"", 14), -1);
    EXPECT_EQ(text.ReverseFind(u'o'), 10);
    EXPECT_EQ(text.ReverseFind(u'x'), -1);
    EXPECT_EQ(text.FindOneOf(u"tw"), 5);
    EXPECT_EQ(text.FindOneOf(u"xyz"), -1);
}

// The search looks at four units at once: each place of the unit and each length must be seen.
TEST(StringTest, FindsAUnitAtEachPlaceOfEachLength)
{
    for (const char16_t wanted : {u'x', u'\u8000', u'\uFFFF', u'\u0001'})
        for (int length = 1; length < 20; ++length)
            for (int place = 0; place < length; ++place)
            {
                CString text(u'\u8001', length);
                text.SetAt(place, wanted);
                ASSERT_EQ(text.Find(wanted), place) << length << " units";
            }
}

TEST(StringTest, ComparesTextsThatDifferAtEachPlace)
{
    for (int length = 1; length < 20; ++length)
        for (int place = 0; place < length; ++place)
        {
            const CString left(u'm', length);
            CString right = left;
            right.SetAt(place, u'\u2126');
            ASSERT_EQ(left.Compare(right), -1) << length << " units, place " << place;
            ASSERT_EQ(right.Compare(left), 1) << length << " units, place " << place;
            ASSERT_NE(left, right);
            ASSERT_EQ(left.Compare(left.Left(place)), 1);
        }
}

TEST(StringTest, ComparesByUnitsAndByLowerCase)
{
    const struct
    {
        const char16_t* m_Left;
        const char16_t* m_Right;
        int m_Exact;
        int m_NoCase;
    } rows[] = {
        {u"a", u"a", 0, 0},
        {u"A", u"a", -1, 0},
        {u"ab", u"a", 1, 1},
        {u"", u"a", -1, -1},
        {u"Z", u"a", -1, 1},
        {u"_", u"A", 1, -1},
        {u"\u00C4", u"\u00E4", -1, 0}, // Latin letters fold
        {u"\u00D7", u"\u00F7", -1, 0}, // and so do these two signs
        {u"\u00DF", u"\u00FF", -1, -1},
        {u"\u0416", u"\u0436", -1, -1}, // others do not
        {u"\xD83D", u"\uFFFD", -1, -1}, // by units
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Left)) + " and " +
                     testing::PrintToString(std::u16string(row.m_Right)));
        EXPECT_EQ(CString(row.m_Left).Compare(row.m_Right), row.m_Exact);
        EXPECT_EQ(CString(row.m_Right).Compare(row.m_Left), -row.m_Exact);
        EXPECT_EQ(CString(row.m_Left).CompareNoCase(row.m_Right), row.m_NoCase);
        EXPECT_EQ(CString(row.m_Left) < CString(row.m_Right), row.m_Exact < 0);
        EXPECT_EQ(CString(row.m_Left) == row.m_Right, row.m_Exact == 0);
    }
}

TEST(StringTest, EditsInPlace)
{
    CString text = u"  \t a b \r\n";
    EXPECT_EQ(Text(text.Trim()), u"a b");
    EXPECT_EQ(Text(CString(u"xxaxx").Trim(u'x')), u"a");
    EXPECT_EQ(Text(CString(u"xyaxy").TrimLeft(u"yx")), u"axy");
    EXPECT_EQ(Text(CString(u"xyaxy").TrimRight(u"yx")), u"xya");
    EXPECT_EQ(Text(CString(u"    ").Trim()), u"");

    EXPECT_EQ(text.Insert(99, u"!"), 4);
    EXPECT_EQ(text.Insert(-1, u'>'), 5);
    EXPECT_EQ(Text(text), u">a b!");
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Delete(0), 2);
    EXPECT_EQ(Text(text), u"a ");
    EXPECT_EQ(text.Delete(5, 1), 2);

    CString list = u"a,b,,c";
    EXPECT_EQ(list.Remove(u','), 3);
    EXPECT_EQ(Text(list), u"abc");
    EXPECT_EQ(list.Replace(u'b', u'x'), 1);
    EXPECT_EQ(list.Replace(u"x", u"xx"), 1);
    EXPECT_EQ(list.Replace(u"x", u"yyy"), 2);
    EXPECT_EQ(list.Replace(u"", u"z"), 0);
    EXPECT_EQ(Text(list), u"ayyyyyyc");
    EXPECT_EQ(list.Replace(u"yy", nullptr), 3);
    EXPECT_EQ(Text(list), u"ac");
}

TEST(StringTest, LoadsATextOfTheTableOrStaysAsItIs)
{
    CString text = u"before";
    EXPECT_FALSE(text.LoadString(1));
    EXPECT_EQ(text, u"before");

    EXPECT_TRUE(text.LoadString(IDS_ERROR_CAPTION));
    EXPECT_EQ(text, u"Error");
}

namespace utility
{

/// Compiles within the namespace too, where the operators of the text value must stay out of the
/// way.
TEST(StringTest, ComparesWithOtherTexts)
{
    const CString text = u"a\u00E9";
    const std::u16string_view view = text.View();
    const std::u16string units(view);

    EXPECT_TRUE(view == u"a\u00E9");
    EXPECT_TRUE(u"a\u00E9" == view);
    EXPECT_TRUE(view != u"b");
    EXPECT_TRUE(units == u"a\u00E9");
    EXPECT_TRUE(text == view && view == text);
    EXPECT_TRUE(text != view.substr(1) && view.substr(1) != text);
    EXPECT_TRUE(u"a\u00E9" == text && u"b" != text);
}

} // namespace utility

TEST(StringTest, TokensSkipEmptyOnesAndEndAtMinusOne)
{
    const CString text = u";;one;two;;three;";
    std::vector<std::u16string> tokens;
    int start = 0;
    for (CString token = text.Tokenize(u";", start); start >= 0; token = text.Tokenize(u";", start))
        tokens.push_back(Text(token));

    EXPECT_EQ(tokens, (std::vector<std::u16string>{u"one", u"two", u"three"}));
    start = 0;
    EXPECT_EQ(Text(text.Tokenize(u"", start)), Text(text));
    EXPECT_TRUE(text.Tokenize(u"", start).IsEmpty());
    EXPECT_EQ(start, -1);
}

TEST(StringTest, BufferIsWrittenAndReleased)
{
    CString text = u"abc";
    char16_t* buffer = text.GetBuffer(10);
    EXPECT_EQ(std::u16string(buffer), u"abc");
    std::u16string(u"0123456789").copy(buffer, 10);
    text.ReleaseBuffer(10);
    EXPECT_EQ(Text(text), u"0123456789");

    text.GetBuffer()[4] = 0;
    text.ReleaseBuffer();
    EXPECT_EQ(Text(text), u"0123");

    text.GetBufferSetLength(2);
    EXPECT_EQ(Text(text), u"01");
    CString empty;
    empty.GetBuffer()[0] = 0;
    empty.ReleaseBuffer();
    EXPECT_EQ(Text(empty), u"");
}

TEST(StringTest, JoinsTextsAndUnits)
{
    const CString text = u"b";
    EXPECT_EQ(Text(u"a" + text + u"c" + u'd'), u"abcd");
    EXPECT_EQ(Text(u'x' + text + text), u"xbb");
    EXPECT_EQ(Text(CString(u'-', 3)), u"---");
    EXPECT_EQ(Text(CString(u'-', -1)), u"");
}
