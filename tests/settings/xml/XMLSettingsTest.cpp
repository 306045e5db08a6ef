#include "settings/xml/XMLSettings.h"

#include "platform/base/collections/StringArray.h"
#include "platform/base/object/Exception.h"
#include "platform/base/object/OleException.h"
#include "platform/base/time/Time.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

void Load(CXMLSettings& settings, const CString& line)
{
    CStringArray lines;
    lines.Add(line);
    settings.LoadXML(&lines);
}

/// Without the header.
CString Written(CXMLSettings& settings)
{
    CStringArray lines;
    settings.SaveXML(&lines, -2);
    CString text;
    for (const CString& line : lines)
        text += line;
    text.Replace(u'\n', u' ');
    return text.TrimRight();
}

CString ValueOf(CXMLSettings& settings, const CString& key, const CString& name)
{
    CString value = u"(preset)";
    settings.GetValue(key, name, value);
    return value;
}

TEST(XMLSettingsTest, AFreshOneIsEmptyUntilTheFirstValue)
{
    CXMLSettings settings;
    CString value = u"preset";
    EXPECT_TRUE(settings.IsEmpty());
    EXPECT_FALSE(settings.GetValue(u"a", u"b", value));
    EXPECT_EQ(value, u"preset");
    EXPECT_FALSE(settings.KeyExists(u""));

    EXPECT_TRUE(settings.SetValue(u"a", u"b", u"1"));

    EXPECT_FALSE(settings.IsEmpty());
    EXPECT_TRUE(settings.KeyExists(u"A\\B"));
    EXPECT_EQ(ValueOf(settings, u"a", u"b"), u"1");
}

TEST(XMLSettingsTest, EveryTypeReadsBack)
{
    CXMLSettings settings;
    EXPECT_TRUE(settings.SetValue(u"t", u"int", -7));
    EXPECT_TRUE(settings.SetValue(u"t", u"long", 2147483647L));
    EXPECT_TRUE(settings.SetValue(u"t", u"yes", true));
    EXPECT_TRUE(settings.SetValue(u"t", u"time", CTime(2026, 11, 21, 14, 5, 0)));
    EXPECT_TRUE(settings.SetValue(u"t", u"junk", u"12x"));

    int number = 0;
    long wide = 0;
    bool truth = false;
    CTime time;
    EXPECT_TRUE(settings.GetValue(u"t", u"int", number) && number == -7);
    EXPECT_TRUE(settings.GetValue(u"t", u"long", wide) && wide == 2147483647L);
    EXPECT_TRUE(settings.GetValue(u"t", u"yes", truth) && truth);
    EXPECT_TRUE(settings.GetValue(u"t", u"int", truth) && truth) << "any number but 0";
    EXPECT_TRUE(settings.GetValue(u"t", u"time", time));
    EXPECT_EQ(time, CTime(2026, 11, 21, 14, 5, 0));
    EXPECT_EQ(ValueOf(settings, u"t", u"time"), u"14:05:00 21-Nov-2026");
    EXPECT_TRUE(settings.GetValue(u"t", u"junk", number) && number == 12);
}

TEST(XMLSettingsTest, ATextThatIsNoTimeRaisesTheStoresException)
{
    CXMLSettings settings;
    settings.SetValue(u"", u"time", u"soon");
    CTime time;
    bool raised = false;
    try
    {
        settings.GetValue(u"", u"time", time);
    }
    catch (COleException* exception)
    {
        const CExceptionGuard guard(exception);
        raised = true;
    }
    EXPECT_TRUE(raised);
}

TEST(XMLSettingsTest, PathsLeadWhereTheyAreSaidTo)
{
    struct
    {
        const char* m_Case;
        const char16_t* m_Tree;
        const char16_t* m_Key;
        const char16_t* m_Name;
        const char16_t* m_Value;
    } const rows[] = {
        {"any case of letters", u"<Ab><cD>1</cD></Ab>", u"aB", u"Cd", u"1"},
        {"no key", u"<a>1</a>", u"", u"a", u"1"},
        {"an empty name is the key", u"<a>1</a>", u"a", u"", u"1"},
        {"a path ends at two separators", u"<a>1<b>2</b></a>", u"a\\", u"b", u"1"},
        {"the first of equal names", u"<a>1</a><a>2</a>", u"", u"a", u"1"},
        {"another chain leads on", u"<a><x/></a><a><b/></a><a><b><c>3</c></b></a>", u"a\\b", u"c",
         u"3"},
        {"back over two levels", u"<a><b><x/></b></a><a><b><c>4</c></b></a>", u"a\\b", u"c", u"4"},
        {"not there", u"<a><b>1</b></a>", u"a\\b", u"c", u"(preset)"},
        {"deeper than the tree", u"<a/>", u"a\\a\\a\\a", u"a", u"(preset)"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        CXMLSettings settings;
        Load(settings, row.m_Tree);
        EXPECT_EQ(ValueOf(settings, row.m_Key, row.m_Name), row.m_Value);
    }
}

TEST(XMLSettingsTest, SettingMakesWhatIsMissingAndSharesLevels)
{
    CXMLSettings settings;
    settings.SetValue(u"a\\b", u"c", 1);
    settings.SetValue(u"A\\B", u"d", 2);
    settings.SetValue(u"a", u"", 3);

    EXPECT_EQ(Written(settings), u"<a> <b> <c>1</c> <d>2</d> </b> 3</a>");
}

TEST(XMLSettingsTest, DuplicatesAreAddedWhereAllowed)
{
    CXMLSettings settings;
    settings.SetAllowDuplicates(true);
    settings.SetValue(u"a", u"b", u"1");
    settings.SetValue(u"a", u"b", u"2");

    EXPECT_EQ(Written(settings), u"<a> <b>1</b> <b>2</b> </a>");
    EXPECT_EQ(ValueOf(settings, u"a", u"b"), u"1");
}

TEST(XMLSettingsTest, DeletingTakesAllBelowButNeverTheRoot)
{
    CXMLSettings settings;
    Load(settings, u"<a><b><c/></b><b>2</b></a>");

    EXPECT_FALSE(settings.DeleteValue(u"", u""));
    EXPECT_FALSE(settings.DeleteValue(u"a", u"x"));
    EXPECT_TRUE(settings.DeleteValue(u"a", u"b"));
    EXPECT_EQ(Written(settings), u"<a> <b>2</b> </a>");
}

TEST(XMLSettingsTest, NewElementsMakeABranchEachTime)
{
    CXMLSettings settings;
    settings.AddNewElement(u"list", u"item\\\\name");
    void* second = settings.AddNewElement(u"list", u"item");
    EXPECT_TRUE(settings.SetValueByHandle(second, u"name", u"2"));
    EXPECT_EQ(settings.AddNewElement(u"list", u""), settings.FindElementHandle(u"list"));

    EXPECT_EQ(Written(settings),
              u"<list> <item> <name/> </item> <item> <name>2</name> </item> </list>");
}

TEST(XMLSettingsTest, CopiedAndMovedBranchesKeepAllTheyHold)
{
    CXMLSettings source;
    Load(source, u"<a><b x=\"1\">v<c><d>2</d></c><e/></b></a><f>3</f>");
    const CString before = Written(source);

    CXMLSettings target;
    EXPECT_TRUE(target.CopyKey(source, u"a\\b", false));
    EXPECT_TRUE(target.CopyKey(source, u"f", false));
    EXPECT_EQ(Written(target), before);
    EXPECT_EQ(Written(source), before);
    EXPECT_FALSE(target.CopyKey(source, u"A\\B", false)) << "the place is taken";
    EXPECT_FALSE(target.CopyKey(source, u"x", false));
    EXPECT_FALSE(target.CopyKey(source, u"", false)) << "the root stays";

    CXMLSettings moved;
    EXPECT_TRUE(moved.MoveKey(source, u"a\\b"));
    EXPECT_TRUE(moved.MoveKey(source, u"f"));
    EXPECT_EQ(Written(moved), before);
    EXPECT_EQ(Written(source), u"<a/>");
}

TEST(XMLSettingsTest, CopiesShareATreeThatOutlivesEachOfThem)
{
    CXMLSettings first;
    first.SetValue(u"a", u"b", u"1");
    CXMLSettings second = first;
    second.SetValue(u"a", u"b", u"2");
    EXPECT_EQ(ValueOf(first, u"a", u"b"), u"2");

    second.Reset(true);

    EXPECT_TRUE(second.IsEmpty());
    EXPECT_EQ(ValueOf(first, u"a", u"b"), u"2");
}

} // namespace
