#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <set>

using namespace utility;

namespace
{

class XMLSettingsHandlesTest : public testing::Test
{
protected:
    void Load(const CString& line)
    {
        CStringArray lines;
        lines.Add(line);
        m_Settings.LoadXML(&lines);
    }

    CString ValueOf(void* handle) { return m_Settings.GetElementValueByHandle(handle); }

    CXMLSettings m_Settings;
};

TEST_F(XMLSettingsHandlesTest, FindsByAttributesAndChildren)
{
    Load(u"<net><pin ID=\"1\" kind=\"In\">a</pin><pin id=\"2\">b<name>X</name></pin></net>"
         u"<net kind=\"bus\"><pin id=\"1\">c<name>Y</name></pin></net><net id=\"9\">d</net>");

    const auto with = [&](const char16_t* path, const char16_t* name, const char16_t* value)
    {
        return ValueOf(m_Settings.FindElementHandleWithAttribute(path, name, value));
    };
    EXPECT_EQ(with(u"net\\pin", u"iD", u"1"), u"a");
    EXPECT_EQ(with(u"net\\pin", u"KIND", u"iN"), u"a") << "values in any case too";
    EXPECT_EQ(with(u"net\\pin", u"id", u"2"), u"b");
    EXPECT_EQ(with(u"net", u"id", u"9"), u"d");
    EXPECT_EQ(with(u"net\\pin", u"id", u"3"), u"");

    const auto tested = [&](const char16_t* path)
    {
        return ValueOf(m_Settings.FindElementHandleWithAttributes(path));
    };
    EXPECT_EQ(tested(u"net kind=bus\\pin"), u"c");
    EXPECT_EQ(tested(u"net\\pin id=2"), u"b");
    EXPECT_EQ(tested(u"net kind=bus\\pin id=2"), u"");
    EXPECT_EQ(tested(u"net\\pin"), u"a");

    const auto holding = [&](const char16_t* path, const char16_t* name, const char16_t* value)
    {
        return ValueOf(m_Settings.FindElementHandleWithValue(path, name, value));
    };
    EXPECT_EQ(holding(u"net\\pin", u"NAME", u"y"), u"c");
    EXPECT_EQ(holding(u"net\\pin", u"name", u"z"), u"");
}

TEST_F(XMLSettingsHandlesTest, AttributesAreReadAsTheyAreWritten)
{
    struct
    {
        const char16_t* m_Attributes;
        const char16_t* m_Name;
        const char16_t* m_Value;
    } const rows[] = {
        {u"a=\"1\" b=\"2\"", u"B", u"2"},
        {u"a=\"1\" b =\"2\"", u"b ", u"2"},
        {u"a=\"1\" b =\"2\"", u"b", u""},
        {u"a=\"1\" a=\"2\"", u"a", u"2"},
        {u"a=\"&amp;\"", u"a", u"&amp;"},
        {u"a=\"1\" b=\"2", u"b", u""},
        {u"a='1' b=\"2\"", u"a", u"2"},
        {u"a=\"\"", u"a", u""},
        {u"a=\"x=y\"b=\"2\"", u"b", u"2"},
        {u"=\"1\"", u"", u"1"},
        {u"a", u"a", u""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Attributes)));
        void* handle = m_Settings.AddNewElement(u"", u"x");
        EXPECT_TRUE(m_Settings.SetAttributesString(handle, row.m_Attributes));
        EXPECT_EQ(m_Settings.GetAttributeValueByHandle(handle, row.m_Name), row.m_Value);
    }
}

TEST_F(XMLSettingsHandlesTest, AttributesLookedUpStayAsTheyWere)
{
    Load(u"<a x=\"1\"/><b x=\"1\"/>");
    void* looked = m_Settings.FindElementHandle(u"a");
    EXPECT_EQ(m_Settings.GetAttributeValueByHandle(looked, u"x"), u"1");

    EXPECT_TRUE(m_Settings.SetAttributesString(u"a", u"x=\"2\""));
    EXPECT_TRUE(m_Settings.SetAttributesString(u"b", u"x=\"2\""));
    EXPECT_FALSE(m_Settings.SetAttributesString(u"c", u"x=\"2\""));

    EXPECT_EQ(m_Settings.GetAttributeValueByHandle(looked, u"x"), u"1");
    EXPECT_EQ(m_Settings.GetAttributeValueByHandle(m_Settings.FindElementHandle(u"b"), u"x"), u"2");
}

TEST_F(XMLSettingsHandlesTest, WalksInEveryDirection)
{
    Load(u"<r><a>1</a><b>2</b><A>3</A></r>");
    void* parent = m_Settings.FindElementHandle(u"r");
    ASSERT_EQ(m_Settings.GetChildCountByHandle(parent), 3);

    CString values;
    for (const int index : {0, 1, 2, 1, 0})
        values += ValueOf(m_Settings.GetChildByHandle(parent, index));
    EXPECT_EQ(values, u"12321");
    void* first = m_Settings.GetChildByHandle(parent, 0);
    EXPECT_EQ(ValueOf(m_Settings.GetNextElementByHandle(first, false)), u"2");
    EXPECT_EQ(ValueOf(m_Settings.GetNextIdenticalElementByHandle(first)), u"3");
    EXPECT_EQ(m_Settings.GetParentByHandle(first), parent);
    void* root = m_Settings.GetParentByHandle(parent);
    EXPECT_EQ(m_Settings.GetElementNameByHandle(root), u"");
    EXPECT_EQ(m_Settings.GetNextElementByHandle(parent, false), nullptr);
    EXPECT_EQ(m_Settings.GetParentByHandle(root), nullptr);
    EXPECT_EQ(m_Settings.GetNextElementByHandle(root, false), nullptr);
    EXPECT_EQ(m_Settings.GetChildByHandle(parent, 3), nullptr);
    EXPECT_EQ(m_Settings.GetChildByHandle(parent, -1), nullptr);
}

TEST_F(XMLSettingsHandlesTest, ChildrenByIndexAreSeenAsTheyAreAfterAChange)
{
    Load(u"<r><a>1</a><b>2</b><c>3</c></r>");
    void* parent = m_Settings.FindElementHandle(u"r");
    EXPECT_EQ(ValueOf(m_Settings.GetChildByHandle(parent, 1)), u"2");

    EXPECT_TRUE(m_Settings.DeleteElementByHandle(parent, u"a"));

    EXPECT_EQ(ValueOf(m_Settings.GetChildByHandle(parent, 1)), u"3");
}

TEST_F(XMLSettingsHandlesTest, ValuesAreSetAlongTheFirstOfEachName)
{
    Load(u"<r><a/><a><b>old</b></a></r>");
    void* root = m_Settings.FindElementHandle(u"r");

    EXPECT_TRUE(m_Settings.SetValueByHandle(root, u"a\\\\b", 5)) << "no other chain is tried";
    EXPECT_FALSE(m_Settings.SetValueByHandle(root, u"", u"x"));

    CString text;
    m_Settings.WriteXMLtoString(text);
    EXPECT_EQ(text, u"<?xml version='1.0' encoding='UTF-8' ?>\n"
                    u"<r>\n<a>\n<b>5</b>\n</a>\n<a>\n<b>old</b>\n</a>\n</r>\n");
}

TEST_F(XMLSettingsHandlesTest, BadHandlesAreAnsweredAsBad)
{
    Load(u"<a><b><c/></b></a>");
    CXMLSettings other;
    other.SetValue(u"", u"a", u"1");
    CXMLSettings target;
    void* deleted = m_Settings.FindElementHandle(u"a\\b\\c");
    void* moved = m_Settings.FindElementHandle(u"a");
    EXPECT_TRUE(m_Settings.DeleteElementByHandle(moved, u"b"));
    EXPECT_TRUE(target.MoveKey(m_Settings, u"a"));
    m_Settings.AddNewElement(u"", u"a\\b\\c"); // takes what memory was given up

    int local = 0;
    struct
    {
        const char* m_Name;
        void* m_Handle;
    } const rows[] = {{"null", nullptr},
                      {"deleted with its parent", deleted},
                      {"moved away", moved},
                      {"of another tree", other.FindElementHandle(u"a")},
                      {"no handle at all", &local}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CString value = u"preset";
        EXPECT_EQ(m_Settings.GetChildCountByHandle(row.m_Handle), 0);
        EXPECT_EQ(m_Settings.GetChildByHandle(row.m_Handle, 0), nullptr);
        EXPECT_EQ(m_Settings.GetParentByHandle(row.m_Handle), nullptr);
        EXPECT_EQ(m_Settings.GetNextElementByHandle(row.m_Handle, false), nullptr);
        EXPECT_EQ(m_Settings.GetElementNameByHandle(row.m_Handle), u"");
        EXPECT_EQ(m_Settings.GetElementValueByHandle(row.m_Handle), u"");
        EXPECT_EQ(m_Settings.GetAttributeValueByHandle(row.m_Handle, u"x"), u"");
        EXPECT_EQ(m_Settings.AddNewElementByHandle(row.m_Handle, u"x"), nullptr);
        EXPECT_FALSE(m_Settings.DeleteElementByHandle(row.m_Handle, u"b"));
        EXPECT_FALSE(m_Settings.SetValueByHandle(row.m_Handle, u"b", 1));
        EXPECT_FALSE(m_Settings.SetAttributesString(row.m_Handle, u"x=\"1\""));
        EXPECT_FALSE(m_Settings.GetValueByHandle(row.m_Handle, u"b", value));
        EXPECT_EQ(value, u"preset");
        if (row.m_Handle) // a null start means the root
        {
            EXPECT_EQ(m_Settings.FindElementHandle(u"a", row.m_Handle), nullptr);
        }
    }
}

TEST_F(XMLSettingsHandlesTest, WalkingManyChildrenIsLinear)
{
    CString text = u"<r>";
    constexpr int COUNT = 100000;
    for (int index = 0; index < COUNT; ++index)
        text += u"<a/>";
    Load(text + u"</r>");
    void* parent = m_Settings.FindElementHandle(u"r");

    std::set<void*> children;
    for (int index = 0; index < COUNT; ++index)
        children.insert(m_Settings.GetChildByHandle(parent, index));
    int count = 0;
    for (void* child = m_Settings.GetChildByHandle(parent, 0); child;
         child = m_Settings.GetNextIdenticalElementByHandle(child))
        ++count;

    EXPECT_EQ(children.size(), std::size_t(COUNT));
    EXPECT_EQ(count, COUNT);
}

} // namespace
