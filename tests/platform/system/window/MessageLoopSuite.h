#pragma once

#include "platform/system/window/MessageLoop.h"

#include <gtest/gtest.h>

#include <vector>

namespace utility
{

/// Makes a loop whose main thread is the calling one.
using LoopMaker = std::unique_ptr<IMessageLoop> (*)();

/// What every main loop must do, whatever stands behind it: a program compiles the sources of these
/// suites and instantiates them with the loops that it knows.
class MessageLoopTest : public testing::TestWithParam<LoopMaker>
{
protected:
    using Notes = std::vector<int>;

    /// Posts a task that notes a number.
    void PostNote(int number)
    {
        ASSERT_TRUE(m_Loop->Post([this, number] { m_Notes.push_back(number); }));
    }
    void PostQuit(int code)
    {
        ASSERT_TRUE(m_Loop->Post([this, code] { m_Loop->Quit(code); }));
    }

    std::unique_ptr<IMessageLoop> m_Loop = GetParam()();
    Notes m_Notes;
};

/// The same where threads meet.
class MessageLoopThreadsTest : public testing::TestWithParam<LoopMaker>
{
protected:
    std::unique_ptr<IMessageLoop> m_Loop = GetParam()();
};

} // namespace utility
