#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/collections/StringList.h"
#include "settings/xml/XMLSettings.h"

#include "support/PrintText.h"
#include "support/SystemCallFault.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

class XMLSettingsFileTest : public testing::Test
{
protected:
    CString PathOf(const char16_t* name) const { return m_Folder.PathOf(name); }

    CTemporaryFolder m_Folder;
};

const std::string HEADER = "<?xml version='1.0' encoding='UTF-8' ?>\r\n";

// The example of docs/formats/xml-settings.md.
TEST_F(XMLSettingsFileTest, WritesTheExampleOfItsFormatPage)
{
    CXMLSettings settings;
    settings.SetEncodings(2);
    settings.SetValue(u"Layers", u"Count", 4);
    settings.SetValue(u"Layers", u"Name", u"Top & Ω");
    settings.SetAttributesString(u"Layers", u"unit=\"mm\"");
    settings.AddNewElement(u"", u"Grid");

    EXPECT_TRUE(settings.SaveXML(PathOf(u"a.xml")));

    EXPECT_EQ(m_Folder.Read(u"a.xml"), HEADER + "<Layers unit=\"mm\">\r\n"
                                                "    <Count>4</Count>\r\n"
                                                "    <Name>Top &amp; Ω</Name>\r\n"
                                                "</Layers>\r\n"
                                                "<Grid/>\r\n");
}

TEST_F(XMLSettingsFileTest, LoadsByConstructionAndSavesAtTheEnd)
{
    const CString path = m_Folder.MakeFile(u"a.xml", "\xEF\xBB\xBF<a>\r\n<b>1</b>\n</a>\r\n");
    {
        CXMLSettings settings(path, false);
        CString value;
        EXPECT_TRUE(settings.GetValue(u"a", u"b", value));
        EXPECT_EQ(value, u"1");
        EXPECT_TRUE(settings.SetValue(u"a", u"b", u"1")) << "no change: not saved at the end";
        settings.DeleteValue(u"a", u"b");
    }
    EXPECT_EQ(m_Folder.Read(u"a.xml"), "\xEF\xBB\xBF<a>\r\n<b>1</b>\n</a>\r\n");
    {
        CXMLSettings settings(path, false);
        settings.SetValue(u"a", u"b", u"2");
        EXPECT_EQ(m_Folder.Read(u"a.xml").find("<b>2"), std::string::npos) << "not before the end";
    }
    EXPECT_EQ(m_Folder.Read(u"a.xml"), HEADER + "<a>\r\n    <b>2</b>\r\n</a>\r\n");
}

TEST_F(XMLSettingsFileTest, AutoSaveWritesEachChangeAtOnce)
{
    CXMLSettings settings(PathOf(u"new.xml"), true);
    settings.SetValue(u"", u"a", 1);
    EXPECT_EQ(m_Folder.Read(u"new.xml"), HEADER + "<a>1</a>\r\n");

    m_Folder.MakeFile(u"new.xml", "other");
    settings.SetValue(u"", u"a", 1);
    EXPECT_EQ(m_Folder.Read(u"new.xml"), "other") << "the same value saves nothing";
}

TEST_F(XMLSettingsFileTest, AFailedLoadLeavesAllAsItWas)
{
    CXMLSettings settings;
    settings.SetValue(u"", u"a", 1);

    EXPECT_FALSE(settings.LoadXML(PathOf(u"none.xml")));
    EXPECT_FALSE(settings.LoadXML(m_Folder.GetPath()));
    EXPECT_FALSE(settings.LoadXML(static_cast<CStringArray*>(nullptr)));

    EXPECT_TRUE(settings.KeyExists(u"a"));
    EXPECT_FALSE(settings.SaveXML()) << "no file name was taken";
    EXPECT_FALSE(settings.SaveXML(PathOf(u"none\\a.xml")));
}

TEST_F(XMLSettingsFileTest, SavesWhatTheHeaderAndTheLastLineAreSaidToBe)
{
    CXMLSettings settings;
    settings.SetValue(u"", u"a", 1);
    const auto written = [&](int encodings, bool keep)
    {
        settings.SetEncodings(encodings);
        CStdioFileEx file(PathOf(u"a"), CFile::modeWrite | CFile::modeCreate | CFile::typeText |
                                            CStdioFileEx::modeReadUTF8);
        EXPECT_TRUE(settings.WriteXML(file, keep));
        file.Close();
        return m_Folder.Read(u"a");
    };

    EXPECT_EQ(written(0, true), HEADER + "<a>1</a>\r\n");
    EXPECT_EQ(written(0, false), HEADER + "<a>1</a>");
    EXPECT_EQ(written(8, true),
              "<?xml version=&apos;1.0&apos; encoding=&apos;UTF-8&apos; ?>\r\n<a>1</a>\r\n");
    settings.Reset(true);
    EXPECT_EQ(written(0, false), HEADER);
}

TEST_F(XMLSettingsFileTest, ALongFileIsWrittenWholeWithAndWithoutItsLastLineEnd)
{
    CXMLSettings settings;
    CString expected;
    for (int index = 0; index < 5000; ++index)
    {
        CString name;
        name.Format(u"Name%d", index);
        settings.SetValue(u"", name, u"1");
        expected += u"<" + name + u">1</" + name + u">\r\n";
    }
    ASSERT_TRUE(settings.SaveXML(PathOf(u"a")));

    EXPECT_TRUE(m_Folder.Read(u"a") == HEADER + ToUtf8(expected.View()));
}

TEST_F(XMLSettingsFileTest, LinesAreDecodedWhereAskedFor)
{
    CStringList lines;
    lines.AddTail(u"&lt;a&gt;&amp;lt;");
    lines.AddTail(u"&lt;/a&gt;");
    CXMLSettings settings;
    settings.SetEncodings(2);
    CString value;

    EXPECT_TRUE(settings.LoadXML(lines, false));
    EXPECT_FALSE(settings.GetValue(u"", u"a", value));
    EXPECT_TRUE(settings.LoadXML(lines, true));
    EXPECT_TRUE(settings.GetValue(u"", u"a", value));
    EXPECT_EQ(value, u"<") << "the lines, then the value";
}

// What saving leaves, whatever call fails, is the old file or the new one.
TEST_F(XMLSettingsFileTest, EachFailingCallOfASaveLeavesTheOldOrTheNewFile)
{
    const std::string oldText = HEADER + "<a>" + std::string(5000, 'o') + "</a>\r\n";
    const std::string newText = HEADER + "<a>" + std::string(90000, 'n') + "</a>\r\n";
    for (const ESystemCallFault fault : {ESystemCallFault::Fails, ESystemCallFault::Kills})
    {
        int call = 1;
        for (;; ++call)
        {
            SCOPED_TRACE(testing::Message() << "file call " << call << ", fault " << int(fault));
            const CTemporaryFolder folder;
            const CString path = folder.MakeFile(u"a.xml", oldText);
            CXMLSettings settings;
            settings.SetValue(u"", u"a", CString(u'n', 90000));

            const CFaultedRun run =
                RunWithFault(call, fault, [&] { return settings.SaveXML(path) ? 0 : 1; });

            const std::string found = folder.Read(u"a.xml");
            EXPECT_TRUE(found == oldText || found == newText);
            if (fault == ESystemCallFault::Fails)
            {
                EXPECT_GE(run.Result, 0) << "the program goes on";
                EXPECT_TRUE(found == (run.Result == 0 ? newText : oldText));
                EXPECT_EQ(folder.List(), std::vector<std::string>{"a.xml"});
            }
            if (!run.WasMet)
                break;
        }
        EXPECT_GT(call, 12) << "the road has more calls than these";
    }
}

} // namespace
