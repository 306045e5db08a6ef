#include "frame/Application.h"

#include "platform/system/SystemVersion.h"
#include "platform/system/window/WinApp.h"
#include "resources/StringIds.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(ApplicationTest, CutsTheProductVersionBeforeTheSecondPoint)
{
    const struct
    {
        const char16_t* m_Version;
        const char16_t* m_ProductVersion;
    } rows[] = {
        {u"", u""},
        {u"7", u"7"},
        {u"7.1", u"7.1"},
        {u"7.1.", u"7.1"},
        {u"7.1.0.332", u"7.1"},
        {u"..", u"."},
        {u"12.34.56", u"12.34"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Version)));
        CApplication::SetVersion(row.m_Version);
        EXPECT_EQ(CApplication::GetVersion(), row.m_Version);
        EXPECT_EQ(CApplication::GetProductVersion(), row.m_ProductVersion);
    }
    CApplication::SetVersion(u"");
}

TEST(ApplicationTest, ShortensTheCompanyToItsFirstWord)
{
    CApplication::SetCompanyName(u"Test Makers Ltd");
    EXPECT_EQ(CApplication::GetCompanyName(true), u"Test");
    EXPECT_EQ(CApplication::GetCompanyName(false), u"Test Makers Ltd");

    CApplication::SetCompanyName(u"Makers");
    EXPECT_EQ(CApplication::GetCompanyName(true), u"Makers");
    CApplication::SetCompanyName(u"");
}

TEST(ApplicationTest, NamesItsSettingsAfterTheProductUnlessTold)
{
    CApplication::SetProductName(u"Board");
    EXPECT_EQ(CApplication::GetRegistryName(), u"Board");
    CApplication::SetRegistryName(u"Board 7");
    EXPECT_EQ(CApplication::GetRegistryName(), u"Board 7");

    CApplication::SetProductName(u"");
    CApplication::SetRegistryName(u"");
}

TEST(ApplicationTest, LoadsFamilyAndVariantFromTheTable)
{
    CApplication::SetProductFamily(IDS_INCH);
    CApplication::SetVariant(1); // no text has this number
    EXPECT_EQ(CApplication::GetProductFamily(), u"inch");
    EXPECT_EQ(CApplication::GetVariant(), u"");
    CApplication::SetProductFamily(1);
}

TEST(ApplicationTest, NameBecomesTheCaptionOfBoxesUnlessTheFrameworkHasOne)
{
    CApplication::SetName(u"Schematic");
    EXPECT_EQ(AfxGetAppName(), u"Schematic");
    {
        CWinApp app;
        app.m_pszAppName = u"Editor";
        EXPECT_EQ(AfxGetAppName(), u"Editor");
    }
    CApplication::SetName(u"");
    EXPECT_EQ(AfxGetAppName(), u"FrameTests"); // the program's file name
}

TEST(ApplicationTest, TellsTheSystem)
{
    const OSVERSIONINFOW* version = CApplication::GetOSVersion();
    EXPECT_EQ(version->dwOSVersionInfoSize, OSVERSIONINFO_SIZE);
    EXPECT_EQ(version->dwPlatformId, VER_PLATFORM_UNIX);
    EXPECT_EQ(version, CApplication::GetOSVersion());
    EXPECT_TRUE(CApplication::IsTrue32BitOS());
}

} // namespace
} // namespace utility
