#include "support/HostileZips.h"
#include "tools/ToolProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// In a folder of its own within the sandbox's, so that what is written beside it shows.
CToolRun Extract(const CToolSandbox& sandbox, const CHostileZip& zip)
{
    sandbox.GetFolder().MakeFile(u"in\\a.zip", zip.m_Bytes);
    // A second of CPU time and files of 10 MB are far more than any of them may cost.
    return sandbox.RunLine(
        "ulimit -t 20; ulimit -f 20480; cd in && utility zip extract a.zip --into out");
}

} // namespace

TEST(ZipHostileTest, EachIsRefusedOrMadeHarmlessInItsOwnWords)
{
    const std::vector<CHostileZip> zips = HostileZips();
    EXPECT_GE(zips.size(), 40U);
    for (const CHostileZip& each : zips)
    {
        SCOPED_TRACE(each.m_Name);
        const CToolSandbox sandbox;

        const CToolRun run = Extract(sandbox, each);

        std::vector<std::string> expected = {"in/", "in/a.zip"};
        const bool isRead = run.m_Output.find("unpacked") != std::string::npos;
        if (isRead)
            expected.push_back("in/out/");
        for (const std::string& name : each.m_Unpacked)
            expected.push_back("in/out/" + name);
        EXPECT_EQ(sandbox.GetFolder().List(), expected);
        EXPECT_EQ(run.m_ExitCode,
                  each.m_Words.empty()                                                 ? 0
                  : each.m_Words.find("passed") == 0 || each.m_Words.find("kept") == 0 ? 1
                                                                                       : 3);
        if (each.m_Words.empty())
            EXPECT_EQ(run.m_Errors, "");
        else
            EXPECT_THAT(run.m_Errors, testing::HasSubstr(": " + each.m_Words));
    }
}

TEST(ZipHostileTest, FoldersThatAreLinksBelowTheTargetAreNotEntered)
{
    const CToolSandbox sandbox;
    const std::filesystem::path work = sandbox.GetFolder().GetNativePath();
    sandbox.GetFolder().MakeFile(u"a.zip",
                                 []
                                 {
                                     for (const CHostileZip& each : HostileZips())
                                     {
                                         if (each.m_Name == "absolute")
                                             return each.m_Bytes;
                                     }
                                     return std::string();
                                 }());
    sandbox.GetFolder().MakeFolder(u"out");
    sandbox.GetFolder().MakeFolder(u"elsewhere");
    std::filesystem::create_symlink("../elsewhere", work / "out" / "tmp");
    std::filesystem::create_symlink("out", work / "base");

    const CToolRun run = sandbox.Run({"zip", "extract", "a.zip", "--into", "base", "--overwrite"});

    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_EQ(run.m_Errors, "utility: tmp/x: a file or a link stands where a folder is wanted\n");
    EXPECT_FALSE(sandbox.GetFolder().Exists(u"elsewhere\\x"));
}

} // namespace utility
