#include "platform/system/window/UserInterface.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/Rect.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WaitCursor.h"
#include "platform/system/window/Wnd.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <sstream>

namespace utility
{
namespace
{

CBoxRequest BoxOf(UINT type)
{
    CBoxRequest request;
    request.m_Text = u"Replace it?";
    request.m_Caption = u"Parts";
    request.m_Type = type;
    return request;
}

TEST(HeadlessUserInterfaceTest, AnswersWhatChangesLeast)
{
    const struct
    {
        const char* m_Name;
        UINT m_Type;
        int m_Answer;
        int m_AnswerOfYesSayer;
    } rows[] = {
        {"OK", MB_OK, IDOK, IDOK},
        {"OK with icon", MB_OK | MB_ICONEXCLAMATION, IDOK, IDOK},
        {"OK/Cancel", MB_OKCANCEL, IDCANCEL, IDCANCEL},
        {"Abort/Retry/Ignore", MB_ABORTRETRYIGNORE, IDABORT, IDABORT},
        {"Yes/No/Cancel", MB_YESNOCANCEL, IDCANCEL, IDCANCEL},
        {"Yes/No", MB_YESNO | MB_ICONQUESTION, IDNO, IDYES},
        {"Retry/Cancel", MB_RETRYCANCEL, IDCANCEL, IDCANCEL},
        {"unknown", 15, IDOK, IDOK},
    };
    const auto cautious = MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing);
    const auto yesSayer = MakeHeadlessUserInterface(EBoxPolicy::SayYes);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(cautious->ShowBox(BoxOf(row.m_Type)), row.m_Answer);
        EXPECT_EQ(yesSayer->ShowBox(BoxOf(row.m_Type)), row.m_AnswerOfYesSayer);
    }
}

CString& TracedLine()
{
    static CString line;
    return line;
}

TEST(HeadlessUserInterfaceTest, TracesTheBoxAndItsAnswer)
{
    TracedLine().Empty();
    SetBoxTrace([](const CString& line) { TracedLine() = line; });
    MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing)->ShowBox(BoxOf(MB_YESNO));
    SetBoxTrace(nullptr);

    EXPECT_EQ(TracedLine(), u"Box \"Replace it?\" is answered No without a user\n");
}

TEST(HeadlessUserInterfaceTest, TakesWarningsAsReadAndDeclinesThemAsAQuestion)
{
    const auto user = MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing);
    CWarningsRequest warnings;
    EXPECT_EQ(user->ShowWarnings(warnings), IDOK);

    warnings.m_AsQuestion = true;
    EXPECT_EQ(user->ShowWarnings(warnings), IDNO);
    EXPECT_EQ(MakeHeadlessUserInterface(EBoxPolicy::SayYes)->ShowWarnings(warnings), IDOK);
}

TEST(HeadlessUserInterfaceTest, KeepsTheClipboardInTheProcess)
{
    const auto user = MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing);
    CString text = u"preset";
    EXPECT_FALSE(user->GetClipboardText(text));
    EXPECT_EQ(text, u"preset");

    EXPECT_TRUE(user->SetClipboardText(CString()));
    EXPECT_TRUE(user->GetClipboardText(text));
    EXPECT_EQ(text, u"");
}

TEST(HeadlessUserInterfaceTest, CountsSevenPixelsAUnit)
{
    const auto user = MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing);
    CWnd control;
    ASSERT_TRUE(control.Create(u"Static", u"", 0, nullptr));
    control.MoveWindow(CRect(10, 0, 10 + 3 * 7, 20));

    EXPECT_TRUE(user->DoesTextFit(u"abc", control));
    EXPECT_FALSE(user->DoesTextFit(u"abcd", control));
}

TEST(HeadlessUserInterfaceTest, SaysThatItCannotOpenAnything)
{
    const auto user = MakeHeadlessUserInterface(EBoxPolicy::ChangeNothing);
    SetLastError(0);
    EXPECT_FALSE(user->OpenAddress(u"http://localhost/"));
    EXPECT_EQ(GetLastError(), ERROR_NOT_SUPPORTED);
}

TEST(TerminalUserInterfaceTest, TakesWordsFirstLettersAndEmptyLines)
{
    const struct
    {
        const char* m_Typed;
        UINT m_Type;
        int m_Answer;
    } rows[] = {
        {"yes\n", MB_YESNO, IDYES},
        {" Y \n", MB_YESNO, IDYES},
        {"n\n", MB_YESNO, IDNO},
        {"\n", MB_YESNO, IDNO},
        {"maybe\nye\ncancel\n", MB_YESNOCANCEL, IDCANCEL},
        {"r\n", MB_ABORTRETRYIGNORE, IDRETRY},
        {"", MB_YESNOCANCEL, IDCANCEL},
        {"nonsense", MB_RETRYCANCEL, IDCANCEL},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Typed);
        std::istringstream input(row.m_Typed);
        std::ostringstream output;
        const auto user = MakeTerminalUserInterface(input, output, EBoxPolicy::ChangeNothing);
        EXPECT_EQ(user->ShowBox(BoxOf(row.m_Type)), row.m_Answer);
    }
}

TEST(TerminalUserInterfaceTest, ShowsTextButtonsAndPreset)
{
    std::istringstream input("y\n");
    std::ostringstream output;
    MakeTerminalUserInterface(input, output, EBoxPolicy::ChangeNothing)->ShowBox(BoxOf(MB_YESNO));

    EXPECT_EQ(output.str(), "Parts: Replace it?\n[Yes/No] (No): ");
}

TEST(TerminalUserInterfaceTest, WaitsForNobodyWhenThereIsNoChoice)
{
    std::istringstream input("y\ny\n");
    std::ostringstream output;
    EXPECT_EQ(
        MakeTerminalUserInterface(input, output, EBoxPolicy::SayYes)->ShowBox(BoxOf(MB_YESNO)),
        IDYES);
    EXPECT_EQ(
        MakeTerminalUserInterface(input, output, EBoxPolicy::ChangeNothing)->ShowBox(BoxOf(MB_OK)),
        IDOK);

    EXPECT_EQ(input.tellg(), 0);
}

TEST(TerminalUserInterfaceTest, DrawsTheBarOnlyWhenItChanges)
{
    std::istringstream input;
    std::ostringstream output;
    bool isCancelled = false;
    const auto user = MakeTerminalUserInterface(input, output, EBoxPolicy::ChangeNothing,
                                                [&] { return isCancelled; });
    user->BeginProgress(u"Import", 10000);
    user->StepProgress(5000);
    user->StepProgress(5001);
    user->StepProgress(20000);
    user->EndProgress();

    EXPECT_EQ(output.str(), "\rImport [###############...............] 50 %"
                            "\rImport [##############################] 100 %\n");
    EXPECT_FALSE(user->IsProgressCancelled());
    isCancelled = true;
    EXPECT_TRUE(user->IsProgressCancelled());
}

TEST(WaitCursorTest, NestsAndEndsWithItsScope)
{
    const CScriptedUser user;
    {
        const CWaitCursor outer;
        const CWaitCursor inner;
        EXPECT_EQ(user.GetWaitDepth(), 2);
    }
    EXPECT_EQ(user.GetWaitDepth(), 0);
}

} // namespace
} // namespace utility
