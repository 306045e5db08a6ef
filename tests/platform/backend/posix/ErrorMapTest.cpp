#include "platform/backend/posix/ErrorMap.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace utility
{

TEST(ErrorMapTest, EachNumberHasItsCode)
{
    const std::pair<int, DWORD> cases[] = {
        {0, 0},           {ENOENT, 2},   {ENOTDIR, 3},        {EMFILE, 4},
        {ENFILE, 4},      {EACCES, 5},   {EPERM, 5},          {EISDIR, 5},
        {EBADF, 6},       {ENOMEM, 8},   {EXDEV, 17},         {EROFS, 19},
        {EBUSY, 32},      {ETXTBSY, 32}, {EAGAIN, 33},        {EDEADLK, 33},
        {ENOTSUP, 50},    {ENOSYS, 50},  {EHOSTUNREACH, 53},  {EINVAL, 87},
        {EPIPE, 109},     {ENOSPC, 112}, {EDQUOT, 112},       {ETIMEDOUT, 121},
        {ENOTEMPTY, 145}, {EEXIST, 183}, {ENAMETOOLONG, 206}, {ECONNREFUSED, 1225},
        {EIO, 31},        {-1, 31},      {9999, 31},
    };
    for (const auto& [number, code] : cases)
    {
        SCOPED_TRACE(number);
        EXPECT_EQ(ErrorFromErrno(number), code);
        errno = number;
        SetLastErrorFromErrno();
        EXPECT_EQ(GetLastError(), code);
    }
    EXPECT_EQ(ErrorFromErrno(ENOENT, true), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(ErrorFromErrno(ENOENT, false), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(ErrorFromErrno(EACCES, false), ERROR_ACCESS_DENIED);
}

TEST(ErrorMapTest, CodesLeadBackToTheNumberThatWordsThem)
{
    const std::pair<DWORD, int> cases[] = {
        {ERROR_FILE_NOT_FOUND, ENOENT},
        {ERROR_PATH_NOT_FOUND, ENOENT},
        {ERROR_ACCESS_DENIED, EACCES},
        {ERROR_FILE_EXISTS, EEXIST},
        {ERROR_ALREADY_EXISTS, EEXIST},
        {ERROR_SHARING_VIOLATION, EBUSY},
        {ERROR_DISK_FULL, ENOSPC},
        {WAIT_TIMEOUT, 0},
        {10601, 0},
    };
    for (const auto& [code, number] : cases)
    {
        SCOPED_TRACE(code);
        EXPECT_EQ(ErrnoFromError(code), number);
    }
}

} // namespace utility
