#include "settings/Registry.h"

#include "support/ChildProcess.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <random>
#include <sched.h>
#include <sys/mman.h>

namespace utility
{

namespace
{

constexpr int VALUES = 10000;
constexpr int STRIDE = 7919; // visits all values, in no order
constexpr int WRITERS = 2;

/// How far each writer has been told that its writes stand; shared with the children.
struct CProgress
{
    std::atomic<int> m_Acknowledged[WRITERS];
};

CString NameOf(int writer, int step)
{
    CString name;
    name.Format(u"own%d_%d", writer, static_cast<int>(std::int64_t{step} * STRIDE % VALUES));
    return name;
}

int Write(CProgress& progress, int writer)
{
    CRegistry key(u"Shared", HKEY_CURRENT_USER);
    for (;;)
    {
        const int step = progress.m_Acknowledged[writer] + 1;
        CString both;
        both.Format(u"%08d/%08d", step, step);
        if (!key.SetValue(NameOf(writer, step), step) || !key.SetValue(u"both", both))
            return 1;
        progress.m_Acknowledged[writer] = step;
    }
}

/// Nothing acknowledged is lost: each value holds the last step that wrote it, or the one on its
/// way.
void CheckOwnValues(int writer, int acknowledged)
{
    const CRegistry key(u"Shared", HKEY_CURRENT_USER);
    for (int step = std::max(1, acknowledged - VALUES + 1); step <= acknowledged; ++step)
    {
        int value = -1;
        ASSERT_TRUE(key.GetValue(NameOf(writer, step), value));
        ASSERT_TRUE(value == step || value == step + VALUES) << value << " at step " << step;
    }
}

void CheckSharedValue()
{
    CString both;
    ASSERT_TRUE(CRegistry(u"Shared", HKEY_CURRENT_USER).GetValue(u"both", both));
    ASSERT_EQ(both.GetLength(), 17);
    EXPECT_EQ(both.Left(8), both.Mid(9));
}

/// False if a writer makes no way: a test that hangs tells nothing.
bool WaitFor(const std::atomic<int>& progress, int reached)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (progress < reached && std::chrono::steady_clock::now() < end)
        sched_yield();
    return progress >= reached;
}

void FillOwnValues(CProgress& progress)
{
    CRegistry key(u"Shared", HKEY_CURRENT_USER);
    CRegistryTransaction transaction(HKEY_CURRENT_USER);
    for (int writer = 0; writer < WRITERS; ++writer)
    {
        for (int step = 1; step <= VALUES; ++step)
            ASSERT_TRUE(key.SetValue(NameOf(writer, step), step));
        progress.m_Acknowledged[writer] = VALUES;
    }
    ASSERT_TRUE(key.SetValue(u"both", u"00000000/00000000"));
    ASSERT_TRUE(transaction.Commit());
}

int Rounds()
{
    // Fifty take too long for each run; the nightly run asks for all.
    return std::getenv("UTILITY_NIGHTLY") ? 50 : 12;
}

} // namespace

TEST(RegistryKillTest, AKilledWriterLosesNothingThatWasAcknowledged)
{
    const CStoreFolder store;
    void* memory =
        mmap(nullptr, sizeof(CProgress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    auto& progress = *new (memory) CProgress();
    FillOwnValues(progress);
    std::mt19937 random(20261121);
    std::unique_ptr<CChildProcess> writers[WRITERS];

    for (int round = 0; round < Rounds() && !testing::Test::HasFailure(); ++round)
    {
        SCOPED_TRACE(round);
        for (int writer = 0; writer < WRITERS; ++writer)
        {
            if (!writers[writer])
                writers[writer] = std::make_unique<CChildProcess>(
                    [&progress, writer] { return Write(progress, writer); });
        }
        const int victim = static_cast<int>(random() % WRITERS);
        ASSERT_TRUE(WaitFor(progress.m_Acknowledged[victim], progress.m_Acknowledged[victim] + 1 +
                                                                 static_cast<int>(random() % 200)));
        for (unsigned spins = random() % 20000; spins != 0; --spins)
            std::atomic_signal_fence(std::memory_order_seq_cst);
        writers[victim].reset();
        CheckOwnValues(victim, progress.m_Acknowledged[victim]);
        CheckSharedValue();
    }

    for (int writer = 0; writer < WRITERS; ++writer)
    {
        writers[writer].reset();
        CheckOwnValues(writer, progress.m_Acknowledged[writer]);
    }
    munmap(memory, sizeof(CProgress));
}

} // namespace utility
