#include "platform/system/file/FolderWatch.h"

#include "platform/system/window/MessageLoop.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

using namespace utility;

namespace
{

namespace fs = std::filesystem;

class FolderWatchTest : public testing::Test
{
protected:
    FolderWatchTest() : m_Before(SetMessageLoop(m_Loop.get())) {}
    ~FolderWatchTest() override
    {
        m_Watch.Stop();
        SetMessageLoop(m_Before);
    }

    /// Starts to watch a folder; each call ends a run of the loop.
    bool Start(const CString& name)
    {
        return m_Watch.Start({m_Folder.PathOf(name)},
                             [this]
                             {
                                 ++m_Calls;
                                 m_Loop->Quit(0);
                             });
    }

    /// A change by itself is told by one call.
    void ExpectOneCall(const std::function<void()>& change)
    {
        const int before = m_Calls;
        change();
        m_Loop->Run();
        EXPECT_EQ(m_Calls, before + 1);
    }

    CTemporaryFolder m_Folder;
    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    IMessageLoop* m_Before;
    CFolderWatch m_Watch;
    int m_Calls = 0;
    fs::path m_A = m_Folder.GetNativePath() / "a";
};

TEST_F(FolderWatchTest, EachKindOfChangeIsTold)
{
    m_Folder.MakeFolder(u"a");
    ASSERT_TRUE(Start(u"a\\"));

    ExpectOneCall([&] { m_Folder.MakeFile(u"a\\new"); });
    ExpectOneCall([&] { m_Folder.MakeFile(u"a\\new", "content"); });
    ExpectOneCall([&] { fs::rename(m_A / "new", m_A / "renamed"); });
    ExpectOneCall([&] { fs::permissions(m_A / "renamed", fs::perms::owner_read); });
    ExpectOneCall([&] { fs::remove(m_A / "renamed"); });
    ExpectOneCall([&] { fs::create_directory(m_A / "below"); });
}

TEST_F(FolderWatchTest, WritesToAFileThatStaysOpenAreToldToWhoAsks)
{
    m_Folder.MakeFolder(u"a");
    std::ofstream file(m_A / "log");
    ASSERT_TRUE(m_Watch.Start(
        {m_Folder.PathOf(u"a")},
        [this]
        {
            ++m_Calls;
            m_Loop->Quit(0);
        },
        EWatched::Writing));

    for (int i = 0; i < 3; ++i)
        ExpectOneCall([&] { file << "line" << std::endl; });
}

TEST_F(FolderWatchTest, ABurstOfManyChangesIsOneCall)
{
    m_Folder.MakeFolder(u"a");
    ASSERT_TRUE(Start(u"a"));

    ExpectOneCall(
        [&]
        {
            for (int i = 0; i < 10'000; ++i) // more than the system's queue holds
                std::ofstream(m_A / std::to_string(i));
        });
    ExpectOneCall([&] { fs::remove(m_A / "77"); });
}

TEST_F(FolderWatchTest, AFolderThatGoesAndComesIsFollowed)
{
    ASSERT_TRUE(Start(u"a\\b")) << "what is not there is awaited";

    ExpectOneCall([&] { m_Folder.MakeFolder(u"a\\b"); });
    ExpectOneCall([&] { m_Folder.MakeFile(u"a\\b\\file"); });
    ExpectOneCall([&] { fs::rename(m_A / "b", m_A / "away"); });
    ExpectOneCall([&] { fs::rename(m_A / "away", m_A / "b"); });
    ExpectOneCall([&] { fs::remove(m_A / "b/file"); });
    ExpectOneCall([&] { fs::remove_all(m_A); });
    ExpectOneCall([&] { m_Folder.MakeFolder(u"a\\b"); });
}

TEST_F(FolderWatchTest, StrangersBesideAnAwaitedFolderAreNotTold)
{
    ASSERT_TRUE(Start(u"a"));
    int strangerCalls = 0;
    CFolderWatch other; // sees what the first one must not tell, so that the test knows when to end
    ASSERT_TRUE(other.Start({m_Folder.GetPath()},
                            [&]
                            {
                                ++strangerCalls;
                                m_Loop->Quit(0);
                            }));

    m_Folder.MakeFile(u"stranger");
    m_Loop->Run();

    EXPECT_EQ(strangerCalls, 1);
    EXPECT_EQ(m_Calls, 0);
}

TEST_F(FolderWatchTest, ACallMayEndTheWatch)
{
    m_Folder.MakeFolder(u"a");
    ASSERT_TRUE(m_Watch.Start({m_Folder.PathOf(u"a")},
                              [this]
                              {
                                  ++m_Calls;
                                  m_Watch.Stop();
                                  m_Loop->Quit(0);
                              }));

    ExpectOneCall([&] { m_Folder.MakeFile(u"a\\file"); });
}

} // namespace
