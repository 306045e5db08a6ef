#include "frame/WarningOptions.h"

#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "frame/UtilIoOps.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "resources/StringIds.h"
#include "settings/AppRegistry.h"

#include "support/ScriptedUser.h"
#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

class WarningOptionsTest : public testing::Test
{
protected:
    WarningOptionsTest() { CWarningOptions::Install(); }
    ~WarningOptionsTest() override
    {
        CUtilIoOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr);
        CAppError::ClearWarnings(true);
    }

    CSettingsSandbox m_Sandbox;
    CScriptedUser m_User;
};

TEST_F(WarningOptionsTest, KeepsWhatIsOffInTheSettingsAndNothingElse)
{
    EXPECT_TRUE(CAppError::IsWarningEnabled(IDS_PRINTER_WARNING));
    CAppError::SetWarningEnabled(IDS_PRINTER_WARNING, false);
    EXPECT_FALSE(CAppError::IsWarningEnabled(IDS_PRINTER_WARNING));
    CAppError::AddWarning(IDS_PRINTER_WARNING, u"P");
    EXPECT_EQ(CAppError::GetWarningCount(), 0);
    int stored = -1;
    EXPECT_TRUE(CAppRegistry(u"Warnings").GetValue(u"10692", stored));
    EXPECT_EQ(stored, 0);

    CAppError::SetWarningEnabled(IDS_PRINTER_WARNING, true);
    EXPECT_TRUE(CAppError::IsWarningEnabled(IDS_PRINTER_WARNING));
    EXPECT_FALSE(CAppRegistry(u"Warnings").GetValue(u"10692", stored));
}

TEST_F(WarningOptionsTest, RegistersTheLibrarysOwnOnce)
{
    RegisterUtilityWarnings();
    RegisterUtilityWarnings();
    EXPECT_EQ(CWarningOptions::GetRegistered(), std::vector<UINT>{IDS_PRINTER_WARNING});
    EXPECT_EQ(CAppError::GetWarningName(IDS_PRINTER_WARNING), u"Named printer not available");
}

TEST_F(WarningOptionsTest, AsksWithThreeAnswersAndHasNoPage)
{
    m_User.WillAnswer(IDNO);
    EXPECT_EQ(CUtilIoOps::PromptYesNoAll(u"Replace", u"All of them?", nullptr), IDNO);
    CUtilIoOps::ShowWarningOptionsDlg();

    const std::vector<CBoxRequest> boxes = m_User.GetBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].m_Caption, u"Replace");
    EXPECT_EQ(boxes[0].m_Type & MB_TYPEMASK, MB_YESNOCANCEL);
    EXPECT_EQ(boxes[1].m_Caption, u"Error");
}

} // namespace
} // namespace utility
