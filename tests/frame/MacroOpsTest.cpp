#include "frame/MacroOps.h"

#include "platform/base/Point.h"
#include "platform/base/String.h"
#include "resources/StringIds.h"

#include "support/ChildProcess.h"
#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

std::vector<std::string>& Calls()
{
    static std::vector<std::string> calls;
    return calls;
}

template <typename TResult>
TResult Note(const char* call, TResult result)
{
    Calls().push_back(call);
    return result;
}

/// A recorder whose functions note their calls, or one without any.
void Init(bool withFunctions)
{
    if (!withFunctions)
    {
        CMacroOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 nullptr, nullptr);
        return;
    }
    CMacroOps::InitFunctions([](const CString*, int*) { return Note("RecordMsgbox", true); },
                             [](const CString* caption, int* result)
                             {
                                 *result = caption->GetLength();
                                 return Note("ReplayMsgbox", true);
                             },
                             [](CPoint*, bool*) { return Note("GetCursorPos", true); },
                             [](CPoint*) { Note("SetCursorPos", 0); },
                             [](UINT) { return Note("RecordCommand", true); },
                             [](UINT) { return Note("RecordInternalCommand", true); },
                             [](int, UINT, CPoint) { Note("RecordMouseEvent", 0); },
                             [](bool) { return Note("SetRecordSuspended", true); },
                             [] { return Note("IsDesignCoords", true); });
}

enum class ENeeds
{
    Nothing,
    Recording,
    Replaying
};

const struct
{
    const char* m_Name;
    ENeeds m_Needs;
    bool (*m_Call)(); // the front; those without a result answer true
} FRONTS[] = {
    {"RecordMsgbox", ENeeds::Recording,
     []
     {
         return CMacroOps::RecordMsgbox(CString(u"Error"), 1);
     }},
    {"ReplayMsgbox", ENeeds::Replaying,
     []
     {
         int result = 0;
         return CMacroOps::ReplayMsgbox(CString(u"Error"), result) && result == 5;
     }},
    {"GetCursorPos", ENeeds::Replaying,
     []
     {
         return CMacroOps::GetCursorPos(nullptr, nullptr);
     }},
    {"SetCursorPos", ENeeds::Replaying,
     []
     {
         return CMacroOps::SetCursorPos(nullptr), true;
     }},
    {"RecordCommand", ENeeds::Recording,
     []
     {
         return CMacroOps::RecordCommand(1);
     }},
    {"RecordInternalCommand", ENeeds::Recording,
     []
     {
         return CMacroOps::RecordInternalCommand(1);
     }},
    {"RecordMouseEvent", ENeeds::Recording,
     []
     {
         return CMacroOps::RecordMouseEvent(1, 2, CPoint()), true;
     }},
    {"SetRecordSuspended", ENeeds::Recording,
     []
     {
         return CMacroOps::SetRecordSuspended(true);
     }},
    {"IsDesignCoords", ENeeds::Nothing,
     []
     {
         return CMacroOps::IsDesignCoords();
     }},
};

TEST(MacroOpsStartTest, EveryFrontIsSilentBeforeTheTableIsFilled)
{
    if (!IsInFreshProcess())
        return;
    const CScriptedUser user;
    CMacroOps::SetRecording(true);
    CMacroOps::SetReplaying(true);
    for (const auto& front : FRONTS)
    {
        SCOPED_TRACE(front.m_Name);
        const bool hasResult = std::string(front.m_Name) != "SetCursorPos" &&
                               std::string(front.m_Name) != "RecordMouseEvent";
        EXPECT_NE(front.m_Call(), hasResult);
    }
    EXPECT_TRUE(user.GetBoxes().empty());
}

class MacroOpsTest : public testing::Test
{
protected:
    ~MacroOpsTest() override
    {
        CMacroOps::SetRecording(false);
        CMacroOps::SetReplaying(false);
        Init(true);
    }

    CScriptedUser m_User;
};

TEST_F(MacroOpsTest, CallsTheHostOnlyInTheStateThatAFrontNeeds)
{
    Init(true);
    for (const auto& front : FRONTS)
    {
        for (const ENeeds state : {ENeeds::Nothing, ENeeds::Recording, ENeeds::Replaying})
        {
            SCOPED_TRACE(std::string(front.m_Name) + " in state " +
                         std::to_string(static_cast<int>(state)));
            CMacroOps::SetRecording(state == ENeeds::Recording);
            CMacroOps::SetReplaying(state == ENeeds::Replaying);
            Calls().clear();
            const bool result = front.m_Call();

            const bool isCalled = front.m_Needs == ENeeds::Nothing || front.m_Needs == state;
            EXPECT_EQ(Calls(), isCalled ? std::vector<std::string>{front.m_Name}
                                        : std::vector<std::string>());
            EXPECT_TRUE(result || !isCalled);
        }
    }
    EXPECT_TRUE(m_User.GetBoxes().empty());
}

TEST_F(MacroOpsTest, ReportsAMissingFunctionByNameAtEachCallInAnyState)
{
    Init(false);
    for (const auto& front : FRONTS)
    {
        SCOPED_TRACE(front.m_Name);
        // The box of the report asks for a macro's answer too, whose missing functions are told in
        // turn.
        const auto countReports = [&]
        {
            CString text;
            text.Format(u"Error: MacroOps function '%s' undefined", CString(front.m_Name));
            const std::vector<CBoxRequest> boxes = m_User.GetBoxes();
            return std::count_if(boxes.begin(), boxes.end(),
                                 [&](const CBoxRequest& box) { return box.m_Text == text; });
        };
        const auto before = countReports();
        front.m_Call();
        EXPECT_GT(countReports(), before);
    }
}

TEST_F(MacroOpsTest, ReportingItselfEnds)
{
    Init(false);
    CMacroOps::ReplayMsgbox(CString(u"x"), *std::make_unique<int>(0));

    // ReplayMsgbox is told; the box of that is recorded, so RecordMsgbox is told; both are silent
    // meanwhile.
    EXPECT_EQ(m_User.GetBoxes().size(), 2U);
}

TEST_F(MacroOpsTest, AMissingFunctionIsReportedAgainAfterAReportThatFailed)
{
    struct CFailingUser : CScriptedUser
    {
        int ShowBox(const CBoxRequest&) override { throw 1; }
    };
    Init(false);
    {
        const CFailingUser user;
        EXPECT_THROW(CMacroOps::RecordCommand(1), int);
    }
    EXPECT_FALSE(CMacroOps::RecordCommand(1));

    EXPECT_FALSE(m_User.GetBoxes().empty());
}

TEST_F(MacroOpsTest, LoadsCaptionsByIdOnlyWhenTheyAreNeeded)
{
    Init(true);
    Calls().clear();
    int result = 0;
    EXPECT_FALSE(CMacroOps::ReplayMsgbox(IDS_ERROR_CAPTION, result));
    EXPECT_FALSE(CMacroOps::RecordMsgbox(IDS_ERROR_CAPTION, 1));
    EXPECT_TRUE(Calls().empty());

    CMacroOps::SetReplaying(true);
    EXPECT_TRUE(CMacroOps::ReplayMsgbox(IDS_ERROR_CAPTION, result));
    EXPECT_EQ(result, 5); // the length of "Error"
}

} // namespace
} // namespace utility
