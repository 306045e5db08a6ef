#include "platform/base/LastError.h"

#include "platform/base/ErrorCodes.h"

#include <gtest/gtest.h>

#include <thread>

using namespace utility;

TEST(LastErrorThreadsTest, EachThreadHasItsOwnCode)
{
    SetLastError(ERROR_ACCESS_DENIED);
    DWORD seen = 1;
    std::thread(
        [&seen]
        {
            seen = GetLastError();
            SetLastError(ERROR_DISK_FULL);
        })
        .join();

    EXPECT_EQ(seen, ERROR_SUCCESS);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST(LastErrorTest, KeeperPutsTheCodeBack)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    {
        const CLastErrorKeeper keeper;
        SetLastError(ERROR_DISK_FULL);
    }
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}
