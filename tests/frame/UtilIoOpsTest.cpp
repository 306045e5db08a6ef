#include "frame/UtilIoOps.h"

#include "platform/base/String.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(UtilIoOpsTest, WithoutATableReportsEachCallAndTakesWarningsAsEnabled)
{
    CUtilIoOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr);
    const CScriptedUser user;
    CUtilIoOps::RegisterWarning(1);
    CUtilIoOps::SetWarningEnabled(1, false);
    EXPECT_TRUE(CUtilIoOps::IsWarningEnabled(1));
    CUtilIoOps::ShowWarningOptionsDlg();
    EXPECT_EQ(CUtilIoOps::PromptYesNoAll(u"", u"", nullptr), 0);

    const char16_t* names[] = {u"RegisterWarning", u"SetWarningEnabled", u"IsWarningEnabled",
                               u"ShowWarningOptionsDlg", u"PromptYesNoAll"};
    const std::vector<CBoxRequest> boxes = user.GetBoxes();
    ASSERT_EQ(boxes.size(), std::size(names));
    for (std::size_t i = 0; i < boxes.size(); ++i)
        EXPECT_EQ(boxes[i].m_Text,
                  CString(u"Error: UtilIoOps function '") + names[i] + u"' undefined");
}

TEST(UtilIoOpsTest, GoesOnToTheHost)
{
    const CScriptedUser user;
    CUtilIoOps::InitFunctions([](UINT) {}, [](UINT, bool) {}, [](UINT id) { return id == 3; },
                              [] {},
                              [](const CString& caption, const CString& text, CWnd*)
                              { return caption.GetLength() * 10 + text.GetLength(); });
    EXPECT_TRUE(CUtilIoOps::IsWarningEnabled(3));
    EXPECT_FALSE(CUtilIoOps::IsWarningEnabled(4));
    EXPECT_EQ(CUtilIoOps::PromptYesNoAll(u"abc", u"12", nullptr), 32);
    CUtilIoOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr);

    EXPECT_TRUE(user.GetBoxes().empty());
}

} // namespace
} // namespace utility
