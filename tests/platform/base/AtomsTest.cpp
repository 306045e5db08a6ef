#include "platform/base/Atoms.h"

#include "resources/MessageNames.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace utility;

TEST(AtomsTest, NamesAreNumberedOnceWithoutCase)
{
    const UINT first = AddAtomW(u"Document.Closing");
    const UINT other = AddAtomW(u"Document.Saved");

    EXPECT_GE(first, 0xC000U);
    EXPECT_NE(first, other);
    EXPECT_EQ(AddAtomW(u"DOCUMENT.closing"), first);
    EXPECT_EQ(AddAtomW(u""), 0U);
    EXPECT_EQ(RegisterWindowMessageW(u""), 0U);
}

TEST(AtomsTest, NumbersDoNotRunOut)
{
    UINT last = AddAtomW(u"AtomsTest");
    for (int i = 0; i < 70000; ++i)
    {
        CString name;
        name.Format(u"AtomsTest %d", i);
        const UINT number = AddAtomW(name);
        ASSERT_GT(number, last);
        last = number;
    }
    EXPECT_GT(last, 0xFFFFU);
}

TEST(AtomsTest, OwnMessagesHaveTheirFixedNumbers)
{
    EXPECT_EQ(RegisterWindowMessageW(u"ShowAppMessageBox"), MSG_SHOW_APP_MESSAGE_BOX);
    EXPECT_EQ(RegisterWindowMessageW(u"SHOWAPPMESSAGEBOX"), MSG_SHOW_APP_MESSAGE_BOX);

    const UINT foreign = RegisterWindowMessageW(u"AtomsTest.Foreign");
    EXPECT_GE(foreign, FIRST_REGISTERED_MESSAGE + OWN_MESSAGE_COUNT);
    EXPECT_EQ(RegisterWindowMessageW(u"atomstest.foreign"), foreign);
}

TEST(AtomsThreadsTest, AgreeOnNumbers)
{
    std::vector<std::vector<UINT>> numbers(4);
    std::vector<std::thread> threads;
    for (auto& mine : numbers)
        threads.emplace_back(
            [&mine]
            {
                for (int i = 0; i < 500; ++i)
                    mine.push_back(AddAtomW(u"AtomsTest.Thread" + CString(u'x', i)));
            });
    for (std::thread& thread : threads)
        thread.join();

    for (const auto& mine : numbers)
        EXPECT_EQ(mine, numbers.front());
}

TEST(AtomsTest, MessagesAreFoundByNameAndByNumber)
{
    const UINT first = RegisterWindowMessageW(u"Atoms.First");
    EXPECT_EQ(GetWindowMessageName(first), u"Atoms.First");
    EXPECT_EQ(RegisterWindowMessageW(u"ATOMS.first"), first);
    EXPECT_EQ(GetWindowMessageName(first), u"Atoms.First") << "the first spelling stays";
    EXPECT_EQ(FindWindowMessage(u"atoms.FIRST"), first);
    EXPECT_EQ(GetWindowMessageName(FindWindowMessage(u"startmodalwindow")), u"StartModalWindow");

    EXPECT_EQ(FindWindowMessage(u"Atoms.Never"), 0U) << "asking registers nothing";
    EXPECT_EQ(FindWindowMessage(u"Atoms.Never"), 0U);
    EXPECT_EQ(FindWindowMessage(u""), 0U);
    EXPECT_EQ(GetWindowMessageName(0x0111), u"");
    EXPECT_EQ(GetWindowMessageName(0xFFFFFFFFU), u"");
}
