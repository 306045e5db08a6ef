#include "platform/backend/posix/RuntimeFolder.h"

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace utility
{
namespace
{

mode_t ModeOf(const std::string& folder)
{
    struct stat status = {};
    return stat(folder.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

class RuntimeFolderTest : public testing::Test
{
protected:
    std::string NativeOf(const std::string& name) const
    {
        return (m_Folder.GetNativePath() / name).string();
    }

    const CTemporaryFolder m_Folder;
    const std::string m_Shared = "/utility-run-" + std::to_string(geteuid());
    const CEnvironmentVariable m_Runtime{"XDG_RUNTIME_DIR", m_Folder.GetNativePath().c_str()};
};

TEST_F(RuntimeFolderTest, IsMadeForThisUserAlone)
{
    EXPECT_EQ(GetRuntimeFolder(), NativeOf("utility"));
    EXPECT_EQ(ModeOf(NativeOf("utility")), mode_t(0700));
    EXPECT_EQ(GetRuntimeFolder(), NativeOf("utility")); // and is found again
}

TEST_F(RuntimeFolderTest, OneThatOthersMayEnterIsClosed)
{
    m_Folder.MakeFolder(u"utility");
    std::filesystem::permissions(NativeOf("utility"), std::filesystem::perms(0755));

    EXPECT_EQ(GetRuntimeFolder(), NativeOf("utility"));

    EXPECT_EQ(ModeOf(NativeOf("utility")), mode_t(0700));
}

TEST_F(RuntimeFolderTest, WhatIsNoFolderOfOursIsPassedOver)
{
    const CTemporaryFolder machine;
    const CTemporaryFolder cache;
    const CEnvironmentVariable temporary("TMPDIR", machine.GetNativePath().c_str());
    const CEnvironmentVariable home("XDG_CACHE_HOME", cache.GetNativePath().c_str());
    m_Folder.MakeFolder(u"elsewhere");
    std::filesystem::create_symlink("elsewhere", NativeOf("utility"));
    EXPECT_EQ(GetRuntimeFolder(), machine.GetNativePath().string() + m_Shared);

    std::filesystem::remove(machine.GetNativePath().string() + m_Shared);
    machine.MakeFile(CString(m_Shared.substr(1).c_str()));
    EXPECT_EQ(GetRuntimeFolder(), cache.GetNativePath().string() + "/utility/run");
    EXPECT_EQ(ModeOf(cache.GetNativePath().string() + "/utility/run"), mode_t(0700));
}

TEST_F(RuntimeFolderTest, WithoutAVariableItLiesBelowTheTemporaryFolder)
{
    for (const char* value : {static_cast<const char*>(nullptr), "relative/folder"})
    {
        SCOPED_TRACE(value ? value : "none");
        const CEnvironmentVariable runtime("XDG_RUNTIME_DIR", value);
        const CEnvironmentVariable temporary("TMPDIR", m_Folder.GetNativePath().c_str());
        EXPECT_EQ(GetRuntimeFolder(), m_Folder.GetNativePath().string() + m_Shared);
    }
}

} // namespace
} // namespace utility
