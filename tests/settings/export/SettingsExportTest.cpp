#include "settings/export/SettingsExport.h"

#include "settings/form/FormImportReader.h"
#include "settings/xml/XMLSettings.h"

#include "support/FormatPage.h"
#include "support/PrintText.h"
#include "support/StoreFolder.h"
#include "support/SystemCallFault.h"

#include <gtest/gtest.h>

#include <random>

namespace utility
{

namespace
{

constexpr ESettingsFormat FORMATS[] = {ESettingsFormat::Xml, ESettingsFormat::Form};

std::vector<BYTE> BytesOf(std::u16string_view units)
{
    const auto* bytes = reinterpret_cast<const BYTE*>(units.data());
    return std::vector<BYTE>(bytes, bytes + units.size() * sizeof(char16_t));
}

CSettingsValue Text(const CString& name, const CString& text)
{
    return {name, REG_SZ,
            BytesOf({text.GetString(), static_cast<std::size_t>(text.GetLength()) + 1})};
}

CSettingsValue Value(const CString& name, DWORD type, std::vector<BYTE> data)
{
    return {name, type, std::move(data)};
}

CSettingsTree TopWith(std::vector<CSettingsValue> values)
{
    CSettingsTree tree;
    tree.AddKey(0, CString());
    for (CSettingsValue& value : values)
        tree.AddValue(0, std::move(value));
    return tree;
}

/// The tree in a readable line, for comparing.
std::string Shown(const CSettingsTree& tree)
{
    std::string shown;
    for (const CSettingsKey& key : tree.GetKeys())
    {
        shown += std::to_string(key.m_Level) + testing::PrintToString(key.m_Name) + "{";
        for (const CSettingsValue& value : key.m_Values)
            shown += testing::PrintToString(value.m_Name) + ":" + std::to_string(value.m_Type) +
                     testing::PrintToString(value.m_Data) + ";";
        shown += "}";
    }
    return shown;
}

class SettingsExportTest : public testing::Test
{
protected:
    static constexpr char16_t KEY[] = u"Software\\Makers\\Board";

    bool Export(ESettingsFormat format, const CString& file)
    {
        return ExportSettings(HKEY_CURRENT_USER, KEY, format, file, m_Fault);
    }
    bool Import(ESettingsFormat format, const CString& file)
    {
        return ImportSettings(HKEY_CURRENT_USER, KEY, format, file, m_Fault);
    }
    static CSettingsTree Stored()
    {
        CSettingsTree tree;
        EXPECT_TRUE(tree.Read(HKEY_CURRENT_USER, KEY));
        return tree;
    }

    CStoreFolder m_Store;
    CTemporaryFolder m_Folder;
    CSettingsFault m_Fault;
};

/// The example of docs/formats/settings-export.md.
CSettingsTree PageExample()
{
    CSettingsTree tree = TopWith({Value(u"Count", REG_DWORD, {0xFB, 0xFF, 0xFF, 0xFF})});
    tree.AddKey(1, u"View");
    tree.AddValue(1, Text(u"Main title", u"R&D \"A\""));
    tree.AddValue(1, Value(u"Recent", REG_MULTI_SZ, BytesOf({u"a\0b\0", 5})));
    tree.AddKey(2, u"Grid");
    tree.AddValue(2, Value(u"", REG_BINARY, {0x00, 0x7F, 0xFF}));
    return tree;
}

TEST_F(SettingsExportTest, TheExamplesOfTheFormatPageAreWrittenAndReadBack)
{
    for (const ESettingsFormat format : FORMATS)
    {
        SCOPED_TRACE(static_cast<int>(format));
        const std::string listing = ReadByteListing("settings-export.md", static_cast<int>(format));
        std::string bytes;
        ASSERT_TRUE(FormatSettings(PageExample(), u"Board", format, bytes, m_Fault));
        EXPECT_EQ(bytes, listing);

        CSettingsTree back;
        ASSERT_TRUE(ParseSettings(listing, u"board", format, back, m_Fault));
        EXPECT_EQ(Shown(back), Shown(PageExample()));
    }
}

TEST_F(SettingsExportTest, EveryTypeAndOddNameComesBackIntoTheStore)
{
    CSettingsTree tree = TopWith({
        Text(u"", u"the default value"),
        Text(u"empty", u""),
        Text(u"blanks", u"  "),
        Text(u"lines", u"a\r\nb\tc"),
        Text(u"marks", u"<&>\"'()\\ _x0041_ ]]> --> \\n"),
        Text(u"bracket", u"("),
        Text(u"half", CString(std::u16string_view(u"x\xD83Dy", 3))),
        Text(u"long", CString(u'q', 5000)),
        Text(u"a\\b=[c];#\u03A9\U0001F600", u"\u03A9 \U0001F600"),
        Value(u"zero", REG_DWORD, {0, 0, 0, 0}),
        Value(u"low", REG_DWORD, {0, 0, 0, 0x80}),
        Value(u"wide", REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 0x88}),
        Value(u"nothing", REG_BINARY, {}),
        Value(u"bytes", REG_BINARY, std::vector<BYTE>(3000, 0xA5)),
        Value(u"texts", REG_MULTI_SZ, BytesOf({u"a \0\0_\n\0", 8})),
        Value(u"no texts", REG_MULTI_SZ, BytesOf({u"\0", 1})),
    });
    tree.AddKey(1, u"1st \"sub\" key/(x)");
    tree.AddKey(2, u"empty");
    tree.AddKey(2, u"zz");
    tree.AddValue(3, Text(u"zz", u"a value named as its key"));
    tree.AddKey(3, u"zz");
    tree.AddKey(1, u"_x0041_");
    ASSERT_TRUE(tree.Store(HKEY_CURRENT_USER, KEY));
    const std::string before = Shown(Stored());

    for (const ESettingsFormat format : FORMATS)
    {
        SCOPED_TRACE(static_cast<int>(format));
        const CStoreFolder other;
        const CString file = m_Folder.PathOf(u"saved");
        ASSERT_TRUE(tree.Store(HKEY_CURRENT_USER, KEY));
        ASSERT_TRUE(Export(format, file));
        const std::string bytes = m_Folder.Read(u"saved");
        const CStoreFolder empty;

        ASSERT_TRUE(Import(format, file)) << static_cast<int>(m_Fault.m_Kind);

        EXPECT_EQ(Shown(Stored()), before);
        ASSERT_TRUE(Export(format, file));
        EXPECT_EQ(m_Folder.Read(u"saved"), bytes);
    }
}

/// Texts of the units that matter here.
CString RandomText(std::mt19937& random)
{
    constexpr std::u16string_view UNITS = u"aZ09 _x-.<>&\"'()\\/=;\r\n\t\u00E9\u03A9\xD83D\xDE00";
    std::u16string text;
    for (unsigned length = random() % 10; length > 0; --length)
        text += UNITS[random() % UNITS.size()];
    return CString(std::u16string_view(text));
}

TEST_F(SettingsExportTest, RandomTreesComeBack)
{
    std::mt19937 random(11);
    for (int round = 0; round < 400; ++round)
    {
        SCOPED_TRACE(round);
        CSettingsTree tree = TopWith({});
        int level = 0;
        for (int index = 0; index < 12; ++index)
        {
            CString name; // each once
            name.Format(u"%d \u03A9<%d", index, round);
            level = 1 + static_cast<int>(random() % static_cast<unsigned>(level + 1));
            tree.AddKey(level, name);
            const std::size_t key = tree.GetKeys().size() - 1;
            tree.AddValue(key, Text(name, RandomText(random)));
            tree.AddValue(key, Text(name + u"_", RandomText(random)));
            tree.AddValue(key, Value(u"b", REG_BINARY, BytesOf(RandomText(random).View())));
        }
        for (const ESettingsFormat format : FORMATS)
        {
            std::string bytes;
            CSettingsTree back;
            ASSERT_TRUE(FormatSettings(tree, u"Board", format, bytes, m_Fault));
            ASSERT_TRUE(ParseSettings(bytes, u"Board", format, back, m_Fault))
                << bytes << m_Fault.m_Line << ":" << m_Fault.m_Column;
            EXPECT_EQ(Shown(back), Shown(tree));
        }
    }
}

TEST_F(SettingsExportTest, WhatWouldNotComeBackFailsTheSaveByName)
{
    struct
    {
        const char* m_Case;
        CSettingsValue m_Value;
    } const rows[] = {
        {"an unknown type", Value(u"bad", 2, BytesOf({u"%x%\0", 4}))},
        {"no type", Value(u"bad", REG_NONE, {})},
        {"a short number", Value(u"bad", REG_DWORD, {1, 2})},
        {"a long number", Value(u"bad", REG_QWORD, std::vector<BYTE>(12))},
        {"a text without its end", Value(u"bad", REG_SZ, BytesOf(u"ab"))},
        {"a text with a zero inside", Value(u"bad", REG_SZ, BytesOf({u"a\0b\0", 4}))},
        {"half a unit", Value(u"bad", REG_SZ, {65, 0, 0})},
        {"texts without their end", Value(u"bad", REG_MULTI_SZ, BytesOf({u"a\0b", 3}))},
        {"no text at all", Value(u"bad", REG_SZ, {})},
    };
    const CString file = m_Folder.MakeFile(u"saved", "old");
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const CStoreFolder store;
        CSettingsTree tree = TopWith({Text(u"good", u"x")});
        tree.AddKey(1, u"View");
        tree.AddValue(1, row.m_Value);
        ASSERT_TRUE(tree.Store(HKEY_CURRENT_USER, KEY));
        for (const ESettingsFormat format : FORMATS)
        {
            EXPECT_FALSE(Export(format, file));
            EXPECT_EQ(m_Fault.m_Kind, ESettingsFault::CannotStand);
            EXPECT_EQ(m_Fault.m_Name, u"View\\bad");
        }
    }
    EXPECT_EQ(m_Folder.Read(u"saved"), "old");
}

TEST_F(SettingsExportTest, KeysAndFilesThatFailAreTold)
{
    const CString file = m_Folder.PathOf(u"saved");
    EXPECT_FALSE(Export(ESettingsFormat::Xml, file));
    EXPECT_EQ(m_Fault.m_Kind, ESettingsFault::KeyUnreadable);
    EXPECT_FALSE(Import(ESettingsFormat::Xml, file));
    EXPECT_EQ(m_Fault.m_Kind, ESettingsFault::FileUnreadable);
    ASSERT_TRUE(TopWith({}).Store(HKEY_CURRENT_USER, KEY));
    EXPECT_FALSE(Export(ESettingsFormat::Form, m_Folder.PathOf(u"none\\saved")));
    EXPECT_EQ(m_Fault.m_Kind, ESettingsFault::FileUnwritable);

    CString deep = KEY;
    for (int level = 0; level < CSettingsTree::PATH_LIMIT / 2 + 1; ++level)
        deep += u"\\k";
    ASSERT_TRUE(TopWith({}).Store(HKEY_CURRENT_USER, deep));
    EXPECT_FALSE(Export(ESettingsFormat::Xml, file));
    EXPECT_EQ(m_Fault.m_Kind, ESettingsFault::TooDeep);
}

TEST_F(SettingsExportTest, TheLibrarysOwnReadersReadBothFormats)
{
    ASSERT_TRUE(PageExample().Store(HKEY_CURRENT_USER, KEY));
    ASSERT_TRUE(Export(ESettingsFormat::Xml, m_Folder.PathOf(u"a.xml")));
    ASSERT_TRUE(Export(ESettingsFormat::Form, m_Folder.PathOf(u"a.frm")));

    CXMLSettings xml;
    xml.SetEncodings(2);
    ASSERT_TRUE(xml.LoadXML(m_Folder.PathOf(u"a.xml")));
    CString value;
    EXPECT_TRUE(xml.GetValue(u"Settings\\View", u"Main_x0020_title", value));
    EXPECT_EQ(value, u"R&D \"A\"");

    CFormImportReader form;
    ASSERT_TRUE(form.Open(m_Folder.PathOf(u"a.frm")));
    EXPECT_TRUE(form.FindForm(u"Main_x0020_title", -1));
    EXPECT_TRUE(form.Read(value));
    EXPECT_EQ(value, u"text");
    EXPECT_TRUE(form.Read(value));
    EXPECT_EQ(value, u"R&D \"A\"");
}

// What saving leaves, whatever call fails, is the old file or the new one.
TEST_F(SettingsExportTest, EachFailingCallOfASaveLeavesTheOldOrTheNewFile)
{
    const CSettingsTree tree = TopWith({Value(u"b", REG_BINARY, std::vector<BYTE>(50000, 1))});
    std::string newText;
    ASSERT_TRUE(FormatSettings(tree, u"Board", ESettingsFormat::Xml, newText, m_Fault));
    int met = 0;
    for (const ESystemCallFault fault : {ESystemCallFault::Fails, ESystemCallFault::Kills})
    {
        for (int call = 1;; ++call)
        {
            SCOPED_TRACE(testing::Message() << "file call " << call << ", fault " << int(fault));
            const CTemporaryFolder folder;
            const CString path = folder.MakeFile(u"a.xml", "old");

            const CFaultedRun run = RunWithFault(
                call, fault,
                [&] {
                    return SaveSettings(tree, u"Board", ESettingsFormat::Xml, path, m_Fault) ? 0
                                                                                             : 1;
                });

            const std::string found = folder.Read(u"a.xml");
            EXPECT_TRUE(found == "old" || found == newText);
            if (fault == ESystemCallFault::Fails)
            {
                EXPECT_GE(run.Result, 0) << "the program goes on";
                EXPECT_TRUE(found == (run.Result == 0 ? newText : "old"));
                EXPECT_EQ(folder.List(), std::vector<std::string>{"a.xml"});
            }
            if (!run.WasMet)
                break;
            ++met;
        }
    }
    EXPECT_GT(met, 20) << "the road has more calls than these";
}

} // namespace

} // namespace utility
