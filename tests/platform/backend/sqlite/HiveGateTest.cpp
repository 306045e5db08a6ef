#include "platform/backend/sqlite/HiveGeneration.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace utility
{

namespace
{

constexpr unsigned MODE = 0600;
constexpr std::chrono::milliseconds NONE{0};
constexpr std::chrono::milliseconds LITTLE{20};

/// A process that took the gate and hangs; it ends with the object.
class CHeldGate
{
public:
    explicit CHeldGate(const std::string& gate) : m_Process([&] { return Hold(gate); })
    {
        close(m_Pipe.m_Ends[1]);
        char byte = 0;
        EXPECT_EQ(read(m_Pipe.m_Ends[0], &byte, 1), 1) << "the gate is held";
    }

private:
    struct CPipe
    {
        CPipe() { EXPECT_EQ(pipe(m_Ends), 0); }
        ~CPipe() { close(m_Ends[0]); }
        int m_Ends[2] = {-1, -1};
    };

    int Hold(const std::string& gate) const
    {
        const CHiveGate held(gate, MODE, NONE);
        if (held.HasTimedOut() || write(m_Pipe.m_Ends[1], "x", 1) != 1)
            return 1;
        pause();
        return 0;
    }

    CPipe m_Pipe;
    CChildProcess m_Process;
};

} // namespace

TEST(HiveGateTest, AHolderThatHangsIsGivenUpWhenPatienceEnds)
{
    const CTemporaryFolder folder;
    const std::string gate = folder.GetNativePath() / "gate";
    {
        const CHeldGate holder(gate);
        EXPECT_TRUE(CHiveGate(gate, MODE, NONE).HasTimedOut());

        const auto begin = std::chrono::steady_clock::now();
        EXPECT_TRUE(CHiveGate(gate, MODE, LITTLE).HasTimedOut());
        EXPECT_GE(std::chrono::steady_clock::now() - begin, LITTLE) << "it was waited for";
    }
    EXPECT_FALSE(CHiveGate(gate, MODE, NONE).HasTimedOut()) << "a holder that ended holds nothing";
}

TEST(HiveGateTest, APlaceWhereNoGateCanBeMadeIsNotWaitedFor)
{
    EXPECT_FALSE(CHiveGate("/nowhere/at/all/gate", MODE).HasTimedOut());
}

} // namespace utility
