#include "support/RawZip.h"
#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace utility;

namespace
{

/// Stops the tool by Ctrl-C as soon as a half-written file shows; its exit code.
int Interrupt(const CToolSandbox& sandbox, const std::vector<const char*>& words,
              const std::string& folder)
{
    const std::string work = sandbox.GetFolder().GetNativePath().string();
    const pid_t tool = fork();
    if (tool == 0)
    {
        std::vector<char*> arguments = {const_cast<char*>("utility")};
        for (const char* word : words)
            arguments.push_back(const_cast<char*>(word));
        arguments.push_back(nullptr);
        if (chdir(work.c_str()) == 0 && std::freopen("errors", "w", stderr))
            execv(UTILITY_TOOL, arguments.data());
        _exit(127);
    }
    const auto isWriting = [&]
    {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(work + "/" + folder, error))
        {
            if (entry.path().extension() == ".tmp" && entry.file_size(error) > 0 && !error)
                return true;
        }
        return false;
    };
    int status = 0;
    while (waitpid(tool, &status, WNOHANG) == 0)
    {
        if (!isWriting())
            continue;
        kill(tool, SIGINT);
        waitpid(tool, &status, 0);
        break;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Deflated data of some GB, without their end: a zero byte, then runs of 258 of the same.
std::string DeflatedZeros()
{
    constexpr std::uint64_t RUN =
        0b00000'10100011; // length 258 and distance 1, the first bit lowest
    constexpr int RUN_BITS = 13;
    // The block's header and the code of a zero byte take 11 bits, so runs begin at bit 3 of byte
    // 1.
    std::string bytes = {'\x63', '\x00'};
    std::string period; // eight runs fill 13 bytes, which hold for any number of them
    std::uint64_t bits = 0;
    int count = 3;
    while (period.size() < 2 * RUN_BITS)
    {
        bits |= RUN << count;
        for (count += RUN_BITS; count >= 8; count -= 8, bits >>= 8U)
            period += static_cast<char>(bits);
    }
    bytes[1] = static_cast<char>(bytes[1] | period[0]);
    for (int i = 0; i < 1'000'000; ++i)
        bytes.append(period, 1, RUN_BITS);
    return bytes;
}

TEST(ZipInterruptTest, CtrlCWithinABigEntryLeavesNothingHalfWritten)
{
    const CToolSandbox sandbox;
    sandbox.RunLine("mkdir big out; truncate -s 3G big/file");
    sandbox.GetFolder().MakeFile(u"old.zip", "old");

    EXPECT_EQ(Interrupt(sandbox, {"zip", "create", "old.zip", "big/file"}, "."), 3);
    EXPECT_EQ(sandbox.GetFolder().Read(u"errors"), "utility: interrupted: no archive was made\n");
    EXPECT_EQ(sandbox.GetFolder().Read(u"old.zip"), "old");

    sandbox.GetFolder().MakeFile(u"a.zip", BuildRawZip({.m_Entries = {{.m_Name = "big",
                                                                       .m_Data = DeflatedZeros(),
                                                                       .m_Method = 8,
                                                                       .m_Size = 0xF0000000}}}));
    EXPECT_EQ(Interrupt(sandbox, {"zip", "extract", "a.zip", "big", "--into", "out"}, "out"), 3);
    EXPECT_EQ(sandbox.RunLine("ls out; ls").m_Output, "a.zip\nbig\nerrors\nold.zip\nout\n");
}

} // namespace
