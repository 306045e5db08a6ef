#include "frame/AppLog.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"
#include "settings/xml/XMLSettings.h"

#include "support/ChildProcess.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace utility
{

namespace
{

/// The lines of the log that tell of a changed file.
std::size_t CountTold()
{
    std::ifstream file(DiskPathBytes(CAppLog::GetLogPath()), std::ios::binary);
    const std::string log(std::istreambuf_iterator<char>(file), {});
    std::size_t count = 0;
    const std::string told = "a.xml was changed by somebody else and is replaced";
    for (std::size_t at = log.find(told); at != std::string::npos; at = log.find(told, at + 1))
        ++count;
    return count;
}

} // namespace

// The other's file has the same length and, most likely, the same second.
TEST(XMLTraceTest, ASaveOverAFileThatSomebodyElseChangedLeavesALine)
{
    if (!IsInFreshProcess()) // since the log is switched on
        return;
    const CSettingsSandbox sandbox;
    const CTemporaryFolder folder;
    CAppRegistry application(u"Application");
    application.SetValue(u"Logging", 1);
    application.SetValue(u"LoggingContext", u"Settings=1");
    CAppLog::Start();
    CXMLSettings settings(folder.MakeFile(u"a.xml", "<a>1</a>"), false);

    EXPECT_FALSE(settings.IsFileChanged());
    EXPECT_TRUE(settings.SaveXML());
    EXPECT_TRUE(settings.SaveXML());
    EXPECT_EQ(CountTold(), 0U) << "its own saves are nobody else's";

    CChildProcess other(
        [&folder]
        {
            const std::string text = folder.Read(u"a.xml");
            folder.MakeFile(u"a.xml", std::string(text.size(), 'x'));
            return 0;
        });
    ASSERT_EQ(other.Wait(), 0);
    EXPECT_TRUE(settings.IsFileChanged());
    EXPECT_TRUE(settings.SaveXML(folder.PathOf(u"b.xml"))) << "another file";
    EXPECT_EQ(CountTold(), 0U);

    EXPECT_TRUE(settings.LoadXML(folder.PathOf(u"a.xml")));
    folder.MakeFile(u"a.xml", "<a>22</a>");
    EXPECT_TRUE(settings.SaveXML());
    EXPECT_EQ(CountTold(), 1U);
    EXPECT_FALSE(settings.IsFileChanged());
}

TEST(XMLTraceTest, AFileThatIsGoneIsNoChange)
{
    const CTemporaryFolder folder;
    CXMLSettings settings(folder.MakeFile(u"a.xml", "<a>1</a>"), false);
    std::filesystem::remove(folder.GetNativePath() / "a.xml");
    EXPECT_FALSE(settings.IsFileChanged());
    EXPECT_FALSE(CXMLSettings().IsFileChanged());
}

} // namespace utility
