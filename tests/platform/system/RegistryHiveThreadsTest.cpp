#include "settings/Registry.h"

#include "support/StoreFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace utility
{

TEST(RegistryHiveThreadsTest, ThreadsSeeEachOthersWritesAtOnceAndInOrder)
{
    const CStoreFolder store;
    constexpr int LAST = 300;
    ASSERT_TRUE(CRegistry(u"K", HKEY_CURRENT_USER).SetValue(u"v", 0));
    std::atomic<int> written = 0;
    std::atomic<int> stale = 0;

    const auto read = [&]
    {
        const CRegistry key(u"K", HKEY_CURRENT_USER);
        for (int value = 0; value < LAST;)
        {
            const int known = written;
            const int before = value;
            if (!key.GetValue(u"v", value) || value < known || value < before)
                ++stale;
        }
    };
    std::thread first(read);
    std::thread second(read);
    CRegistry key(u"K", HKEY_CURRENT_USER);
    for (int value = 1; value <= LAST; ++value)
    {
        EXPECT_TRUE(key.SetValue(u"v", value));
        written = value;
    }
    first.join();
    second.join();

    EXPECT_EQ(stale, 0);
}

} // namespace utility
