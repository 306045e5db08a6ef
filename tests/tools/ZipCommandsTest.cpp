#include "ToolProcess.h"
#include "support/FixedClock.h"
#include "support/RawZip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace utility;
using testing::HasSubstr;

namespace
{

/// Files of which tests make archives, with a time of their own.
void MakeDesign(const CToolSandbox& sandbox)
{
    sandbox.GetFolder().MakeFile(u"design\\amp.sch", "schematic schematic schematic\n");
    sandbox.GetFolder().MakeFile(u"design\\lib\\op.sym", "symbol\n");
    sandbox.GetFolder().MakeFolder(u"design\\empty");
    sandbox.RunLine("find design -exec touch -d '2024-02-29 13:45:30' {} +");
}

/// What a program printed until it ended, typed to as a person would after its prompt.
std::string TypeInto(const CToolSandbox& sandbox, const std::vector<const char*>& words,
                     const std::string& typed, int& exitCode)
{
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
    {
        std::vector<char*> arguments = {const_cast<char*>("utility")};
        for (const char* word : words)
            arguments.push_back(const_cast<char*>(word));
        arguments.push_back(nullptr);
        if (chdir(sandbox.GetFolder().GetNativePath().c_str()) == 0)
            execv(UTILITY_TOOL, arguments.data());
        _exit(127);
    }
    std::string shown;
    bool isTyped = false;
    char piece[256];
    for (ssize_t count = 0; (count = read(terminal, piece, sizeof piece)) > 0;)
    {
        shown.append(piece, static_cast<std::size_t>(count));
        if (!isTyped && shown.find("Password: ") != std::string::npos)
            isTyped = write(terminal, typed.data(), typed.size()) > 0;
    }
    int status = 0;
    waitpid(child, &status, 0);
    close(terminal);
    exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return shown;
}

TEST(ZipCommandsTest, PacksListsFindsTestsAndUnpacksAFolder)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);

    EXPECT_EQ(sandbox.Run({"zip", "create", "a.zip", "./design/", "--first", "DESIGN/lib/op.sym"})
                  .m_Output,
              "5 entries, 37 bytes\n");
    EXPECT_EQ(sandbox.Run({"zip", "list", "a.zip", "*.SYM", "*amp*"}).m_Output,
              "Size  Packed  Modified             Method    Name\n"
              "----  ------  -------------------  --------  -----------------\n"
              "   7       9  2024-02-29 13:45:30  deflated  design/lib/op.sym\n"
              "  30      16  2024-02-29 13:45:30  deflated  design/amp.sch\n");
    EXPECT_EQ(sandbox.Run({"zip", "list", "a.zip", "*.SYM", "--json"}).m_Output,
              "[{\"index\": 0, \"name\": \"design/lib/op.sym\", \"folder\": false, \"size\": 7, "
              "\"packed\": 9, \"method\": \"deflated\", \"modified\": \"2024-02-29 13:45:30\"}]\n");
    EXPECT_EQ(sandbox.Run({"zip", "test", "a.zip"}).m_Output, "5 of 5 entries are sound\n");
    EXPECT_EQ(sandbox.Run({"zip", "find", "a.zip", "design\\AMP.sch"}).m_ExitCode, 0);
    EXPECT_EQ(sandbox.Run({"zip", "find", "a.zip", "design/AMP.sch", "--case"}).m_ExitCode, 1);
    EXPECT_EQ(sandbox.Run({"zip", "list", "a.zip", "none"}).m_ExitCode, 1);
    EXPECT_EQ(sandbox.Run({"zip", "extract", "a.zip", "--into", "out/deep"}).m_Output,
              "2 files and 3 folders unpacked\n");
    EXPECT_EQ(
        sandbox.RunLine("diff -r design out/deep/design && stat -c %Y out/deep/design/amp.sch")
            .m_Output,
        "1709214330\n");
}

TEST(ZipCommandsTest, FilesThatAreThereAreKeptUnlessOverwritten)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.Run({"zip", "create", "a.zip", "design"});
    sandbox.GetFolder().MakeFile(u"design\\amp.sch", "newer");

    const CToolRun kept = sandbox.Run({"zip", "extract", "a.zip", "*.sch"});
    EXPECT_EQ(kept.m_ExitCode, 1);
    EXPECT_EQ(kept.m_Output, "0 files and 0 folders unpacked, 1 kept\n");
    EXPECT_EQ(kept.m_Errors, "utility: design/amp.sch: kept as it is; see --overwrite\n");
    EXPECT_EQ(sandbox.GetFolder().Read(u"design\\amp.sch"), "newer");

    const CToolRun replaced =
        sandbox.Run({"zip", "extract", "a.zip", "*.sch", "--overwrite", "--json"});
    EXPECT_EQ(replaced.m_ExitCode, 0);
    EXPECT_EQ(replaced.m_Output, "{\"files\": 1, \"folders\": 0, \"kept\": 0, \"failed\": 0}\n");
    EXPECT_EQ(sandbox.GetFolder().Read(u"design\\amp.sch"), "schematic schematic schematic\n");
}

TEST(ZipCommandsTest, NothingIsUnpackedBeyondTheGreatestSize)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.Run({"zip", "create", "a.zip", "design"});
    const struct
    {
        const char* m_Size;
        int m_ExitCode;
        const char* m_Errors;
    } cases[] = {
        {"36", 3,
         "utility: a.zip: nothing is unpacked: it would be 37 bytes, and --max-size is 36\n"},
        {"5x", 2, "utility: --max-size: a count of bytes is wanted, such as 500M\n"},
        {"M", 2, "utility: --max-size: a count of bytes is wanted, such as 500M\n"},
        {"37", 0, ""},
        {"1K", 1, nullptr},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.m_Size);
        const CToolRun run =
            sandbox.Run({"zip", "extract", "a.zip", "--into", "out", "--max-size", each.m_Size});
        EXPECT_EQ(run.m_ExitCode, each.m_ExitCode);
        EXPECT_EQ(run.m_Errors, each.m_Errors ? each.m_Errors : run.m_Errors);
    }
}

TEST(ZipCommandsTest, PasswordComesFromAFileAndIsAskedForWhenWrong)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.GetFolder().MakeFile(u"right", "gehe\xC3\xADm\n");
    sandbox.GetFolder().MakeFile(u"wrong", "Geheim\n");
    sandbox.GetFolder().MakeFile(u"none", "\n");

    EXPECT_EQ(
        sandbox.Run({"zip", "create", "a.zip", "design", "--password-file", "right"}).m_ExitCode,
        0);

    EXPECT_EQ(sandbox.Run({"zip", "test", "a.zip", "--password-file", "right"}).m_ExitCode, 0);
    const CToolRun wrong =
        sandbox.Run({"zip", "test", "a.zip", "*.sch", "--password-file", "wrong"});
    EXPECT_EQ(wrong.m_ExitCode, 1);
    EXPECT_EQ(wrong.m_Output, "0 of 1 entry is sound\n");
    const CToolRun without = sandbox.Run({"zip", "extract", "a.zip", "*.sch", "--into", "out"});
    EXPECT_EQ(without.m_ExitCode, 3);
    EXPECT_EQ(without.m_Errors,
              "utility: design/amp.sch: the password is missing or wrong; see --password\n");
    EXPECT_EQ(sandbox.Run({"zip", "test", "a.zip", "--password-file", "none"}).m_Errors,
              "utility: none: its first line is empty, so it is no password\n");
    EXPECT_EQ(sandbox.Run({"zip", "test", "a.zip", "--password"}).m_Errors,
              "utility: no password was given; without a terminal see --password-file\n");
}

TEST(ZipCommandsTest, AskedPasswordIsNeverShown)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.GetFolder().MakeFile(u"right", "secret\n");
    sandbox.Run({"zip", "create", "a.zip", "design", "--password-file", "right"});
    int exitCode = -1;

    const std::string shown =
        TypeInto(sandbox, {"zip", "test", "a.zip", "--password"}, "secrex\x7Ft\r", exitCode);
    EXPECT_EQ(exitCode, 0);
    EXPECT_THAT(shown, HasSubstr("5 of 5 entries are sound"));
    EXPECT_THAT(shown, testing::Not(HasSubstr("secre")));

    TypeInto(sandbox, {"zip", "test", "a.zip", "--password"}, "other\x15secret\n", exitCode);
    EXPECT_EQ(exitCode, 0);
    TypeInto(sandbox, {"zip", "create", "b.zip", "design", "--password"}, "one\rtwo\r", exitCode);
    EXPECT_EQ(exitCode, 3);
    EXPECT_THAT(TypeInto(sandbox, {"zip", "test", "a.zip", "--password"}, "sec\x03", exitCode),
                HasSubstr("no password was given"));
    EXPECT_EQ(exitCode, 3);
    EXPECT_FALSE(sandbox.GetFolder().Exists(u"b.zip"));
}

TEST(ZipCommandsTest, FailedCreationLeavesTheOldArchive)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.GetFolder().MakeFile(u"a.zip", "old");
    sandbox.GetFolder().MakeFile(u"other\\design\\amp.sch", "x");
    const struct
    {
        const char* m_Name;
        std::vector<std::string> m_Words;
        const char* m_Errors;
    } cases[] = {
        {"absent file", {"design", "absent"}, "utility: absent: No such file or directory\n"},
        {"no such first",
         {"design", "--first", "x"},
         "utility: --first: no entry has the name 'x'\n"},
        {"two of a name",
         {"design/amp.sch", "other/../design/amp.sch"},
         "utility: other/../design/amp.sch: another file has the name 'design/amp.sch' already\n"},
        {"device", {"/dev/null"}, "utility: /dev/null: neither a file nor a folder\n"},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.m_Name);
        std::vector<std::string> words = {"zip", "create", "a.zip"};
        words.insert(words.end(), each.m_Words.begin(), each.m_Words.end());
        const CToolRun run = sandbox.Run(words);
        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors, each.m_Errors);
        EXPECT_EQ(sandbox.GetFolder().Read(u"a.zip"), "old");
    }
    EXPECT_EQ(sandbox.RunLine("ls").m_Output, "a.zip\ndesign\nother\n");
}

TEST(ZipCommandsTest, ArchiveDoesNotGoIntoItself)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.Run({"zip", "create", "design/a.zip", "design"});

    EXPECT_EQ(sandbox.Run({"zip", "create", "design/a.zip", "design"}).m_Output,
              "5 entries, 37 bytes\n");
}

TEST(ZipCommandsTest, UnreadableEntriesAreNamedWithTheirMethod)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(
        u"a.zip", BuildRawZip({.m_Entries = {{.m_Name = "bz", .m_Method = 12},
                                             {.m_Name = "aes", .m_Method = 99, .m_Flags = 1},
                                             {.m_Name = "odd", .m_Method = 1234},
                                             {.m_Name = "good"}}}));

    const CToolRun run = sandbox.Run({"zip", "test", "a.zip"});

    EXPECT_EQ(run.m_ExitCode, 1);
    EXPECT_EQ(run.m_Output, "1 of 4 entries are sound\n");
    EXPECT_EQ(run.m_Errors,
              "utility: bz: it is compressed in a way that cannot be read: method 12 (bzip2)\n"
              "utility: aes: it is encrypted in a way that cannot be read: method 99 (AES), "
              "encrypted in a way of its own\n"
              "utility: odd: it is compressed in a way that cannot be read: method 1234\n");
}

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
    // The block's header and the code of a zero byte take 11 bits, so runs begin at bit 3 of byte 1.
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
