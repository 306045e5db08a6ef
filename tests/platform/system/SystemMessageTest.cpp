#include "platform/system/SystemMessage.h"

#include "platform/base/ErrorCodes.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(SystemMessageTest, CodesAreWordedWithoutALineEnd)
{
    const CEnvironmentVariable all("LC_ALL", "C");
    const struct
    {
        DWORD m_Code;
        const char16_t* m_Words;
    } cases[] = {
        {ERROR_FILE_NOT_FOUND, u"No such file or directory"},
        {ERROR_PATH_NOT_FOUND, u"No such file or directory"},
        {ERROR_ACCESS_DENIED, u"Permission denied"},
        {ERROR_ALREADY_EXISTS, u"File exists"},
        {ERROR_FILE_EXISTS, u"File exists"},
        {ERROR_DISK_FULL, u"No space left on device"},
        {ERROR_PROC_NOT_FOUND, u"The module has no such function"},
        {WAIT_TIMEOUT, u"The wait has timed out"},
        {ERROR_SERVICE_NOT_ACTIVE, u"The service has not been started"},
        {RPC_S_SERVER_UNAVAILABLE, u"No manager of services answers on this system"},
        {ERROR_SUCCESS, u""},
        {10601, u""},
        {4000000000U, u""},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Code);
        EXPECT_EQ(GetSystemMessage(row.m_Code), row.m_Words);
    }
}

} // namespace utility
