#include "platform/system/process/Handle.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileHandle.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace utility
{

TEST(HandleTest, WhatIsNoHandleIsRefused)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    ASSERT_TRUE(CloseHandle(readEnd));
    ASSERT_TRUE(CloseHandle(writeEnd));

    for (const HANDLE handle : {HANDLE{}, INVALID_HANDLE_VALUE, readEnd, writeEnd})
    {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(CloseHandle(handle));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(WaitForSingleObject(handle, 0), WAIT_FAILED);
        DWORD done = 0;
        char byte = 0;
        EXPECT_FALSE(ReadFile(handle, &byte, 1, done));
    }
}

TEST(HandleTest, ClosedHandleIsNotGivenAgain)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");
    const HANDLE first = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    ASSERT_TRUE(CloseHandle(first));

    const HANDLE second = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);

    EXPECT_NE(first, second);
    EXPECT_TRUE(CloseHandle(second));
}

TEST(HandleTest, PipeIsSignalledOnceThereIsSomethingToRead)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    EXPECT_EQ(WaitForSingleObject(readEnd, 0), WAIT_TIMEOUT);

    DWORD done = 0;
    ASSERT_TRUE(WriteFile(writeEnd, "x", 1, done));

    EXPECT_EQ(WaitForSingleObject(readEnd, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(CloseHandle(readEnd));
    EXPECT_TRUE(CloseHandle(writeEnd));
}

TEST(HandleThreadsTest, HandleMayBeClosedWhileAnotherThreadWaits)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    DWORD result = WAIT_FAILED;
    std::thread waiter([&] { result = WaitForSingleObject(readEnd, INFINITE); });

    // Whichever comes first: a wait that began is ended by the other side, one that did not fails.
    EXPECT_TRUE(CloseHandle(readEnd));
    EXPECT_TRUE(CloseHandle(writeEnd));

    waiter.join();
    EXPECT_TRUE(result == WAIT_OBJECT_0 || result == WAIT_FAILED);
}

} // namespace utility
