#include "settings/export/SettingsExport.h"

#include "support/PrintText.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

using enum ESettingsFault;

struct CRefusal
{
    const char* m_Case;
    std::string m_Bytes;
    ESettingsFault m_Kind;
    int m_Line;
    int m_Column;
    CString m_Name = CString();
};

void ExpectRefused(const std::vector<CRefusal>& rows, ESettingsFormat format)
{
    for (const CRefusal& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        CSettingsTree tree;
        CSettingsFault fault;
        EXPECT_FALSE(ParseSettings(row.m_Bytes, u"B", format, tree, fault));
        EXPECT_EQ(fault.m_Kind, row.m_Kind);
        EXPECT_EQ(fault.m_Line, row.m_Line);
        EXPECT_EQ(fault.m_Column, row.m_Column);
        EXPECT_EQ(fault.m_Name, row.m_Name);
        EXPECT_TRUE(tree.GetKeys().empty()) << "the tree stays";
    }
}

std::string InXml(const std::string& content)
{
    return "<?xml version='1.0' encoding='UTF-8' ?>\r\n<Settings version=\"1\" name=\"B\">\r\n" +
           content + "\r\n</Settings>\r\n";
}

TEST(SettingsRefusalTest, XmlIsRefusedWithItsPlace)
{
    const std::string top = "<Settings version=\"1\" name=\"B\">";
    ExpectRefused(
        {
            {"nothing", "", OtherFormat, 1, 1},
            {"text", "hello", OtherFormat, 1, 1},
            {"another program's", "<?xml version='1.0'?>\n<svg/>", OtherFormat, 2, 1},
            {"a form", "(Settings 1 \"B\")", OtherFormat, 1, 1},
            {"a document type", "<!DOCTYPE x><Settings/>", OtherFormat, 1, 1},
            {"a longer name", "<Settings2 version=\"1\" name=\"B\"/>", OtherFormat, 1, 1},
            {"no version", "<Settings name=\"B\"/>", OtherFormat, 1, 1},
            {"a newer version", "<Settings version=\"2\" name=\"B\"/>", NewerFormat, 1, 1, u"2"},
            {"another key", "<Settings version=\"1\" name=\"C\"/>", OtherKey, 1, 1, u"C"},
            {"no UTF-8", top + "\n\xC3\xA9 \xFF", NoText, 2, 3},
            {"UTF-16", std::string("\xFF\xFE<\0", 4), NoText, 1, 1},
            {"cut in the top", "<Settings version=\"1\"", OpenEnd, 1, 1, u"Settings"},
            {"cut in an attribute", "<Settings version=\"1", OpenEnd, 1, 20},
            {"cut behind the top", top + "\n", OpenEnd, 1, 1, u"Settings"},
            {"cut in a comment", top + "<!-- ", OpenEnd, 1, 32},
            {"cut in a text", top + "<a type=\"text\">x", OpenEnd, 1, 47},
            {"cut in a declaration", "<?xml ", OpenEnd, 1, 1},
            {"more behind it", InXml("") + "<a/>", Unexpected, 5, 1},
            {"text between", InXml(" \xC3\xA9 x"), Unexpected, 3, 2},
            {"a text of a key", InXml("<a>1</a>"), Unexpected, 3, 4},
            {"another close tag", InXml("<a>\n</b>"), WrongClose, 4, 1, u"b"},
            {"of a value", InXml("<a type='text'>x</b>"), WrongClose, 3, 17, u"b"},
            {"an element in a text", InXml("<a type='text'>x<b/></a>"), Unexpected, 3, 17, u"b"},
            {"a comment in a text", InXml("<a type='text'>x<!-- --></a>"), Unexpected, 3, 18},
            {"raw sections", InXml("<![CDATA[x]]>"), Unexpected, 3, 2},
            {"an instruction", InXml("<?php ?>"), Unexpected, 3, 2},
            {"a name of digits", InXml("<1a/>"), BadName, 3, 2, u"1a"},
            {"an empty key", InXml("<_/>"), BadName, 3, 1, u"_"},
            {"a separator in a key", InXml("<a_x005C_b/>"), BadName, 3, 1, u"a_x005C_b"},
            {"a zero in a key", InXml("<_x0000_/>"), BadName, 3, 1, u"_x0000_"},
            {"a zero in a name", InXml("<_x0000_ type='text'/>"), BadName, 3, 1, u"_x0000_"},
            {"half a pair", InXml("<_xD800_/>"), BadName, 3, 1, u"_xD800_"},
            {"a key twice", InXml("<a/>\n<A/>"), Twice, 4, 1, u"A"},
            {"a value twice", InXml("<a type='text'/><A type='bytes'/>"), Twice, 3, 17, u"A"},
            {"another attribute", InXml("<a kind='text'/>"), Unexpected, 3, 1, u"a"},
            {"two attributes", InXml("<a type='text' b='1'/>"), Unexpected, 3, 1, u"a"},
            {"many attributes", InXml("<a b='1' c='2' d='3'/>"), Unexpected, 3, 16},
            {"no blank between", InXml("<a type='text'b='1'/>"), Unexpected, 3, 15},
            {"no quotes", InXml("<a type=text/>"), Unexpected, 3, 9},
            {"no value", InXml("<a type/>"), Unexpected, 3, 8},
            {"an unknown type", InXml("<a type='real'>1</a>"), UnknownType, 3, 1, u"real"},
            {"no number", InXml("<a type='number'>12x</a>"), BadValue, 3, 1, u"a"},
            {"an empty number", InXml("<a type='number'/>"), BadValue, 3, 1, u"a"},
            {"too large", InXml("<a type='number'>2147483648</a>"), BadValue, 3, 1, u"a"},
            {"too wide", InXml("<a type='wide'>9223372036854775808</a>"), BadValue, 3, 1, u"a"},
            {"an odd digit", InXml("<a type='bytes'>0A1</a>"), BadValue, 3, 1, u"a"},
            {"no digit", InXml("<a type='bytes'>0G</a>"), BadValue, 3, 1, u"a"},
            {"a zero in a text", InXml("<a type='text'>_x0000_</a>"), BadValue, 3, 1, u"a"},
            {"another item", InXml("<a type='texts'><b/></a>"), Unexpected, 3, 17, u"b"},
            {"text between items", InXml("<a type='texts'>x</a>"), Unexpected, 3, 17},
            {"a line end", InXml("<a type='text'>x\r\n</a>"), BadUnit, 3, 17},
            {"an unknown entity", InXml("<a type='text'>x&nbsp;</a>"), BadEscape, 3, 17},
            {"a bare &", InXml("<a type='text'>& </a>"), BadEscape, 3, 16},
            {"no character", InXml("<a type='text'>&#xD800;</a>"), BadEscape, 3, 16},
            {"beyond all", InXml("<a type='text'>&#x110000;</a>"), BadEscape, 3, 16},
            {"a zero", InXml("<a type='text'>&#0;</a>"), BadEscape, 3, 16},
        },
        ESettingsFormat::Xml);
}

TEST(SettingsRefusalTest, FormsAreRefusedWithTheirPlace)
{
    const auto in = [](const std::string& content)
    {
        return "(Settings 1 \"B\"\r\n" + content + "\r\n)\r\n";
    };
    ExpectRefused(
        {
            {"nothing", "", OtherFormat, 1, 1},
            {"XML", InXml(""), OtherFormat, 1, 1},
            {"another program's", "(Component\n(Name R1))", OtherFormat, 1, 2},
            {"no version", "(Settings \"B\")", OtherFormat, 1, 11},
            {"a newer version", "(Settings 2 \"B\")", NewerFormat, 1, 11, u"2"},
            {"no name", "(Settings 1 B)", OtherFormat, 1, 13},
            {"another key", "(Settings 1 \"C\")", OtherKey, 1, 13, u"C"},
            {"no UTF-8", "(Settings 1 \"\xC3\"", NoText, 1, 14},
            {"cut in the top", "(Settings 1 \"B\" ", OpenEnd, 1, 1},
            {"cut in a key", in("(a\n (b\n (c)").substr(0, 30), OpenEnd, 3, 2},
            {"cut in a value", "(Settings 1 \"B\" (a text \"x\" ", OpenEnd, 1, 17},
            {"cut in a text", "(Settings 1 \"B\" (a text \"x", OpenEnd, 1, 25},
            {"more behind it", in("") + "(a)", Unexpected, 4, 1},
            {"a word between", in("(a)\nb"), Unexpected, 3, 1},
            {"no name of a key", in("()"), Unexpected, 2, 2},
            {"a quoted name", in("(\"a\")"), Unexpected, 2, 2},
            {"a text of a key", in("(a \"x\")"), Unexpected, 2, 4},
            {"a form in a value", in("(a text \"x\" (b))"), Unexpected, 2, 13},
            {"a word as a text", in("(a text x)"), Unexpected, 2, 9},
            {"a text as a number", in("(a number \"1\")"), Unexpected, 2, 11},
            {"two texts", in("(a text \"x\" \"y\")"), BadValue, 2, 1, u"a"},
            {"no text", in("(a text)"), BadValue, 2, 1, u"a"},
            {"two numbers", in("(a number 1 2)"), BadValue, 2, 1, u"a"},
            {"an unknown type", in("(a real 1)"), UnknownType, 2, 1, u"real"},
            {"an empty key", in("(_)"), BadName, 2, 1, u"_"},
            {"a key twice", in("(a)(A)"), Twice, 2, 4, u"A"},
            {"a value twice", in("(a text \"\")\n(a bytes)"), Twice, 3, 1, u"a"},
            {"a line end in a text", in("(a text \"x\ny\")"), BadUnit, 2, 11},
            {"an escape of nothing", in("(a text \"x\\n\")"), BadEscape, 2, 11},
        },
        ESettingsFormat::Form);
}

TEST(SettingsRefusalTest, WhatPeopleMayWriteIsTaken)
{
    CSettingsTree tree;
    CSettingsFault fault;
    const std::string xml =
        "\xEF\xBB\xBF<Settings version = '1' name='b' ><!-- a - note -->\n<a >\n</a ><b "
        "type='text'>"
        "&#65;&#x3A9;&#128512;&apos;</b><c type='texts'> <text/><text>x</text> </c></Settings>";
    ASSERT_TRUE(ParseSettings(xml, u"B", ESettingsFormat::Xml, tree, fault));
    ASSERT_EQ(tree.GetKeys().size(), 2U);
    ASSERT_EQ(tree.GetKeys()[0].m_Values.size(), 2U);
    const std::u16string text = u"A\u03A9\U0001F600'";
    const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
    EXPECT_EQ(tree.GetKeys()[0].m_Values[0].m_Data,
              std::vector<BYTE>(bytes, bytes + 2 * text.size() + 2));
    EXPECT_EQ(tree.GetKeys()[0].m_Values[1].m_Data, (std::vector<BYTE>{0, 0, 'x', 0, 0, 0, 0, 0}));
    EXPECT_TRUE(ParseSettings("(Settings 1\"b\"(a)(b\nbytes\n0aFf))", u"B", ESettingsFormat::Form,
                              tree, fault));
    EXPECT_EQ(tree.GetKeys()[0].m_Values[0].m_Data, (std::vector<BYTE>{0x0A, 0xFF}));
}

TEST(SettingsRefusalTest, HostileFilesEndEarlyAndTakeNoMoreThanTheirSize)
{
    constexpr int MANY = 300000;
    std::string levels;
    std::string forms = "(Settings 1 \"B\"";
    for (int level = 0; level < MANY; ++level)
    {
        levels += "<a>";
        forms += "(a";
    }
    const std::string long_ = std::string(10'000'000, 'x');
    ExpectRefused(
        {{"levels", "<Settings version='1' name='B'>" + levels, TooDeep, 1,
          32 + 3 * (CSettingsTree::PATH_LIMIT / 2), u"a"},
         {"a long name", "<Settings version='1' name='B'><a" + long_ + "/>", TooDeep, 1, 32,
          CString(u"a") + CString(u'x', 10'000'000)},
         {"a long text", "<Settings version='1' name='B'><a type='text'>" + long_, OpenEnd, 1, 47},
         {"references", "<Settings version='1' name='B'><a type='text'>&" + long_, BadEscape, 1,
          47}},
        ESettingsFormat::Xml);
    ExpectRefused({{"levels", forms, TooDeep, 1, 16 + 2 * (CSettingsTree::PATH_LIMIT / 2), u"a"},
                   {"texts", "(Settings 1 \"B\" (a texts \"" + long_, OpenEnd, 1, 26}},
                  ESettingsFormat::Form);
}

// What was read before the fault is not stored either.
TEST(SettingsRefusalTest, NothingOfARefusedFileIsStored)
{
    constexpr char16_t KEY[] = u"Software\\Makers\\B";
    const CStoreFolder store;
    const CTemporaryFolder folder;
    CSettingsTree before;
    before.AddKey(0, CString());
    before.AddValue(0, {u"v", REG_DWORD, {1, 0, 0, 0}});
    ASSERT_TRUE(before.Store(HKEY_CURRENT_USER, KEY));
    const CString file = folder.MakeFile(
        u"a.xml", InXml("<v type='number'>2</v><w type='number'>3</w><k/><x type='number'/>"));

    CSettingsFault fault;
    EXPECT_FALSE(ImportSettings(HKEY_CURRENT_USER, KEY, ESettingsFormat::Xml, file, fault));

    EXPECT_EQ(fault.m_Kind, BadValue);
    CSettingsTree after;
    ASSERT_TRUE(after.Read(HKEY_CURRENT_USER, KEY));
    ASSERT_EQ(after.GetKeys().size(), 1U);
    EXPECT_EQ(after.GetKeys()[0].m_Values, before.GetKeys()[0].m_Values);
}

// A load merges: what the file does not name stays.
TEST(SettingsRefusalTest, ALoadMergesAndReplacesWhateverTheType)
{
    constexpr char16_t KEY[] = u"Software\\Makers\\B";
    const CStoreFolder store;
    const CTemporaryFolder folder;
    CSettingsTree before;
    before.AddKey(0, CString());
    before.AddValue(0, {u"Stays", REG_DWORD, {1, 0, 0, 0}});
    before.AddValue(0, {u"Changes", REG_DWORD, {1, 0, 0, 0}});
    ASSERT_TRUE(before.Store(HKEY_CURRENT_USER, KEY));
    const CString file = folder.MakeFile(
        u"a.xml", InXml("<CHANGES type='bytes'>01</CHANGES><Sub><new type='number'>3</new></Sub>"));
    CSettingsFault fault;

    ASSERT_TRUE(ImportSettings(HKEY_CURRENT_USER, KEY, ESettingsFormat::Xml, file, fault));

    CSettingsTree after;
    ASSERT_TRUE(after.Read(HKEY_CURRENT_USER, KEY));
    ASSERT_EQ(after.GetKeys().size(), 2U);
    const std::vector<CSettingsValue> top = {{u"Stays", REG_DWORD, {1, 0, 0, 0}},
                                             {u"Changes", REG_BINARY, {1}}};
    EXPECT_EQ(after.GetKeys()[0].m_Values, top);
    EXPECT_EQ(after.GetKeys()[1].m_Values[0], (CSettingsValue{u"new", REG_DWORD, {3, 0, 0, 0}}));
}

} // namespace

} // namespace utility
