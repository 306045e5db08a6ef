#include "platform/system/file/AppendFile.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace utility
{
namespace
{

/// In a child: a disk that takes so many bytes of a file, and no more.
void LimitFiles(rlim_t size)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = size;
    setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(AppendFileTest, NothingIsLeftOfALineThatFindsNoRoom)
{
    const CTemporaryFolder folder;
    CChildProcess child(
        [&folder]
        {
            CAppendFile file;
            file.SetPath(folder.PathOf(u"log"));
            LimitFiles(10);
            const bool isFirstThere = file.Append("12345678\n");
            const bool isSecondThere = file.Append("a part of this has room\n");
            const bool isFull = GetLastError() == ERROR_DISK_FULL;
            LimitFiles(1000);
            const bool isThirdThere = file.Append("room again\n");
            return isFirstThere && !isSecondThere && isFull && isThirdThere ? 0 : 1;
        });

    EXPECT_EQ(child.Wait(), 0);
    EXPECT_EQ(folder.Read(u"log"), "12345678\nroom again\n");
}

} // namespace
} // namespace utility
