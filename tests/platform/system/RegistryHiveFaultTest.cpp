#include "settings/Registry.h"

#include "support/ChildProcess.h"
#include "support/ScriptedUser.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

namespace utility
{

namespace
{

namespace fs = std::filesystem;

class RegistryHiveFaultTest : public testing::Test
{
protected:
    fs::path StorePath() const { return m_Store.GetFolder().GetNativePath() / "user.db"; }

    int CountSetAside() const
    {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(m_Store.GetFolder().GetNativePath()))
            count += entry.path().filename().string().starts_with("user.db.damaged-") ? 1 : 0;
        return count;
    }

    static int GetNumber(const CString& name)
    {
        int number = -1;
        CRegistry(u"K", HKEY_CURRENT_USER).GetValue(name, number);
        return number;
    }

    static bool SetNumber(const CString& name, int number)
    {
        return CRegistry(u"K", HKEY_CURRENT_USER).SetValue(name, number);
    }

    CStoreFolder m_Store;
    CScriptedUser m_User;
};

} // namespace

TEST_F(RegistryHiveFaultTest, ADamagedFileIsSetAsideAndToldOnce)
{
    std::ofstream(StorePath()) << "this is no store of settings, whatever it may once have been";

    EXPECT_EQ(GetNumber(u"v"), -1);
    EXPECT_TRUE(SetNumber(u"v", 1));

    EXPECT_EQ(GetNumber(u"v"), 1);
    EXPECT_EQ(CountSetAside(), 1);
    EXPECT_GE(m_User.GetOnlyText().Find(u"damaged"), 0);
}

TEST_F(RegistryHiveFaultTest, DamageThatIsMetLaterIsMendedToo)
{
    for (int number = 0; number < 500; ++number)
    {
        CString name;
        name.Format(u"value number %d", number);
        ASSERT_TRUE(SetNumber(name, number));
    }
    ReopenRegistry(); // all stands in the file itself
    {
        std::fstream file(StorePath(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(4096); // every page but the first
        const std::string noise(static_cast<std::size_t>(fs::file_size(StorePath())) - 4096,
                                '\xA5');
        file << noise;
    }

    GetNumber(u"value number 250");
    EXPECT_TRUE(SetNumber(u"v", 1));

    EXPECT_EQ(GetNumber(u"v"), 1);
    EXPECT_EQ(CountSetAside(), 1);
    EXPECT_EQ(m_User.GetBoxes().size(), 1U);
}

TEST_F(RegistryHiveFaultTest, AReadOnlyStoreIsReadAndRefusesWrites)
{
    ASSERT_TRUE(SetNumber(u"v", 1));
    ReopenRegistry();
    const fs::path folder = m_Store.GetFolder().GetNativePath();
    fs::permissions(folder, fs::perms(0555));
    for (const auto& entry : fs::directory_iterator(folder))
        fs::permissions(entry.path(), fs::perms(0444));

    CChildProcess child(
        []
        {
            DropRights();
            const CScriptedUser user;
            const bool read = GetNumber(u"v") == 1;
            const bool refused = !SetNumber(u"v", 2) && !SetNumber(u"w", 3);
            const bool stays = GetNumber(u"v") == 1 && GetNumber(u"w") == -1;
            return (read ? 0 : 1) | (refused ? 0 : 2) | (stays ? 0 : 4) |
                   (user.GetBoxes().size() == 1 ? 0 : 8);
        });

    EXPECT_EQ(child.Wait(), 0);
    fs::permissions(folder, fs::perms(0755));
    EXPECT_EQ(CountSetAside(), 0);
}

TEST_F(RegistryHiveFaultTest, ANewerStoreIsLeftAloneAndToldOnce)
{
    ASSERT_TRUE(SetNumber(u"v", 1));
    ReopenRegistry();
    {
        std::fstream file(StorePath(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(60); // where the file's header keeps the number of its layout
        file << std::string("\0\0\0\x63", 4);
    }
    const auto size = fs::file_size(StorePath());

    EXPECT_EQ(GetNumber(u"v"), -1);
    EXPECT_FALSE(SetNumber(u"v", 2));

    EXPECT_GE(m_User.GetOnlyText().Find(u"newer"), 0);
    EXPECT_EQ(CountSetAside(), 0);
    EXPECT_EQ(fs::file_size(StorePath()), size);
}

TEST_F(RegistryHiveFaultTest, AFullDiskRefusesWritesAndKeepsWhatWasThere)
{
    ASSERT_TRUE(SetNumber(u"v", 1));
    ReopenRegistry();

    CChildProcess child(
        []
        {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit limit = {200 * 1024, 200 * 1024};
            setrlimit(RLIMIT_FSIZE, &limit);
            CRegistry key(u"K", HKEY_CURRENT_USER);
            const std::vector<unsigned char> bytes(20000, 7);
            int written = 0;
            CString name;
            do
                name.Format(u"big%d", written);
            while (key.SetValue(name, bytes.data(), 20000) && ++written < 100);
            return GetNumber(u"v") == 1 && written > 0 ? written : 101;
        });
    const int written = child.Wait();

    ASSERT_GT(written, 0);
    ASSERT_LT(written, 100) << "the limit was never met";
    EXPECT_EQ(GetNumber(u"v"), 1);
    CRegistry key(u"K", HKEY_CURRENT_USER);
    CString name;
    int listed = 0;
    while (key.GetNextValue(name, listed))
        ++listed;
    EXPECT_EQ(listed, written + 1);
    EXPECT_TRUE(SetNumber(u"v", 2));
}

} // namespace utility
