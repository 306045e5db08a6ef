#include "resources/MessageNames.h"

#include "platform/base/String.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(MessageNamesTest, EachNameGivesItsOwnNumberWhateverItsCase)
{
    for (UINT number = FIRST_REGISTERED_MESSAGE;
         number < FIRST_REGISTERED_MESSAGE + OWN_MESSAGE_COUNT; number++)
    {
        SCOPED_TRACE(number);
        CString name = GetMessageName(number);
        ASSERT_FALSE(name.IsEmpty());

        EXPECT_EQ(FindMessageName(name.View()), number);
        name.MakeUpper();
        EXPECT_EQ(FindMessageName(name.View()), number);
    }
}

TEST(MessageNamesTest, NumbersAgreedWithOtherProcessesStay)
{
    // A process of another release sends these numbers: a changed one would be another message.
    EXPECT_EQ(FindMessageName(u"ShowAppMessageBox"), 0xC000U);
    EXPECT_EQ(FindMessageName(u"MvtEnableMRU"), 0xC018U);
    EXPECT_EQ(FindMessageName(u"RecordGridWndWndDblClkMessage"), MSG_RECORD_GRID_DBL_CLK);
    EXPECT_EQ(FindMessageName(u"EditGridCommand"), 0xC02EU);
}

TEST(MessageNamesTest, OtherNamesAndNumbersAreNotTheLibrarys)
{
    for (const std::u16string_view name : {u"", u"ShowAppMessageBo", u"ShowAppMessageBoxx"})
    {
        SCOPED_TRACE(CString(name).GetLength());
        EXPECT_EQ(FindMessageName(name), 0U);
    }
    for (const UINT number : {0U, FIRST_REGISTERED_MESSAGE - 1,
                              FIRST_REGISTERED_MESSAGE + OWN_MESSAGE_COUNT, 0xFFFFFFFFU})
    {
        SCOPED_TRACE(number);
        EXPECT_TRUE(GetMessageName(number).empty());
    }
}

} // namespace utility
