#include "frame/AppError.h"
#include "platform/base/LastError.h"
#include "resources/StringIds.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace utility
{
namespace
{

TEST(AppErrorThreadsTest, RecordsOfManyThreadsStayWhole)
{
    constexpr int RECORDS = 500;
    const CString longName(u'x', 200);
    const auto record = [&longName](UINT id)
    {
        for (int i = 0; i < RECORDS; ++i)
            CAppError::SetLastError(id, longName);
    };
    std::vector<std::thread> threads;
    for (const UINT id :
         {IDS_FILE_READ_ONLY, IDS_CREATE_DIRECTORY_FAILED, IDS_CANNOT_OPEN_WARNINGS_FILE})
        threads.emplace_back(record, id);

    int strange = 0;
    for (int i = 0; i < RECORDS; ++i)
    {
        SetLastError(0); // this thread's own cell: no newer failure here
        const CString text = CAppError::GetLastErrorString();
        if (!text.IsEmpty() && text.Find(longName) < 0)
            ++strange;
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(strange, 0);
    EXPECT_EQ(CAppError::GetErrorString(CAppError::GetLastError(), longName),
              CAppError::GetLastErrorString());
    CAppError::SetLastError(0);
}

TEST(AppErrorThreadsTest, AnotherThreadsSystemFailureIsNotNewerHere)
{
    CAppError::SetLastError(IDS_UNDEFINED_ERROR);
    std::thread([] { SetLastError(5); }).join();

    EXPECT_EQ(CAppError::GetLastErrorString(), u"Undefined error");
    CAppError::SetLastError(0);
}

TEST(AppErrorThreadsTest, AnErrorLockLeftOnAnotherThreadSilencesThisOne)
{
    const CScriptedUser user;
    auto lock = std::make_unique<CErrorLock>();
    std::thread(
        [&]
        {
            CAppError::ReportError(u"held back");
            lock.reset(); // ends on another thread than it began
            CAppError::ReportError(u"shown");
        })
        .join();

    EXPECT_TRUE(CAppError::AreErrorsUnlocked());
    EXPECT_EQ(user.GetOnlyText(), u"shown");
    CAppError::SetLastError(0);
}

} // namespace
} // namespace utility
