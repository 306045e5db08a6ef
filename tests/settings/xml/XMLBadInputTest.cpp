#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "support/PeakMemory.h"
#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// What loading the file adds to the peak of a process of its own, in megabytes; 255 for more.
int LoadingCost(const CString& file, bool wantsError)
{
    return PeakMegabytes(
        [&]
        {
            CXMLSettings settings;
            settings.SetEncodings(2);
            return settings.LoadXML(file) && settings.HasParseError() == wantsError;
        });
}

std::string Repeated(std::string_view text, int count)
{
    std::string all;
    for (; count > 0; --count)
        all += text;
    return all;
}

} // namespace

// Bounds are a few times what a unit of UTF-16 in three buffers and an element's own size come to;
// anything that doubles with each line or level is far beyond them.
TEST(XMLBadInputTest, MemoryIsInProportionToTheInput)
{
    constexpr int TEN_MEGABYTES = 10'000'000;
    const std::string row = std::string(99, 'x') + "\n";
    struct
    {
        const char* m_Case;
        std::string m_Bytes;
        int m_Megabytes; // at most
        bool m_HasError;
    } const rows[] = {
        {"a long attribute", "<a b=\"" + std::string(TEN_MEGABYTES, 'x') + "\"/>", 150, false},
        {"a long text", "<a>" + std::string(TEN_MEGABYTES, 'x') + "</a>", 150, false},
        {"a tag that never ends", "<a b=\"" + std::string(TEN_MEGABYTES, 'x'), 150, false},
        {"the same over lines", "<a b=\"" + Repeated(row, TEN_MEGABYTES / 100), 150, false},
        {"a comment that never ends", "<a><!--" + Repeated(row, TEN_MEGABYTES / 100), 60, true},
        {"a text that no tag ends", "<a>" + Repeated(row, TEN_MEGABYTES / 100), 150, true},
        {"levels", Repeated("<a>", 100000), 60, true},
        {"closed levels", Repeated("<a>", 100000) + Repeated("</a>", 100000), 60, false},
    };
    for (const auto& item : rows)
    {
        SCOPED_TRACE(item.m_Case);
        const CTemporaryFolder folder;
        const int cost = LoadingCost(folder.MakeFile(u"a.xml", item.m_Bytes), item.m_HasError);
        EXPECT_LE(cost, item.m_Megabytes);
    }
}

// Halves of pairs live in memory; a file holds the replacement for each, and reads as that.
TEST(XMLBadInputTest, LoneSurrogatesGoThroughAsTheReplacementAndHarmNothingElse)
{
    const CTemporaryFolder folder;
    const CString lone(std::u16string_view(u"a\xD83Dz\xDC00", 4));
    const CString pair = u"\U0001F600";
    for (const int encodings : {0, 2, 4, 16, 18})
    {
        SCOPED_TRACE(encodings);
        CXMLSettings settings;
        settings.SetEncodings(encodings);
        settings.SetValue(u"", u"lone", lone);
        settings.SetValue(u"", u"pair", pair);
        settings.AddNewElement(u"", lone);
        settings.SetAttributesString(u"pair", u"x=\"" + lone + u"\"");
        CString value;
        EXPECT_TRUE(settings.GetValue(u"", u"lone", value));
        EXPECT_EQ(value, lone);
        ASSERT_TRUE(settings.SaveXML(folder.PathOf(u"a.xml")));

        CXMLSettings back;
        back.SetEncodings(encodings);
        ASSERT_TRUE(back.LoadXML(folder.PathOf(u"a.xml")));
        EXPECT_FALSE(back.HasParseError());
        EXPECT_TRUE(back.GetValue(u"", u"lone", value));
        EXPECT_EQ(value, u"a\xFFFDz\xFFFD");
        EXPECT_TRUE(back.GetValue(u"", u"pair", value));
        EXPECT_EQ(value, pair);
        EXPECT_TRUE(back.KeyExists(u"a\xFFFDz\xFFFD"));
        EXPECT_EQ(back.GetAttributeValueByHandle(back.FindElementHandle(u"pair"), u"x"),
                  u"a\xFFFDz\xFFFD");
    }
}

// Set where the end of the input meets an element that is open, nowhere else, and anew by each
// load.
TEST(XMLBadInputTest, TheParseErrorIsSetByAnOpenElementAtTheEndAlone)
{
    CXMLSettings settings;
    const auto loads = [&settings](const char16_t* text)
    {
        CStringArray lines;
        lines.Add(text);
        EXPECT_TRUE(settings.LoadXML(&lines));
        return !settings.HasParseError();
    };
    EXPECT_FALSE(settings.HasParseError());
    for (const char16_t* text : {u"", u"text", u"<", u"<a", u"<!--", u"</a>", u"</a><b>",
                                 u"<a></b>", u"<a/><b", u"<?x", u"<a></a></a><b>"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        EXPECT_FALSE(loads(u"<open>"));
        EXPECT_TRUE(loads(text));
    }
    for (const char16_t* text : {u"<a>", u"<a>text", u"<a><b></a>", u"<a><!--</a>", u"<a></a",
                                 u"<a></a><b>", u"<!DOCTYPE x>", u"<a b=\">\">"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        EXPECT_TRUE(loads(u"<closed/>"));
        EXPECT_FALSE(loads(text));
        EXPECT_FALSE(settings.LoadXML(u"\\none.xml"));
        EXPECT_TRUE(settings.HasParseError()) << "a load that fails leaves all as it was";
    }
}

} // namespace utility
