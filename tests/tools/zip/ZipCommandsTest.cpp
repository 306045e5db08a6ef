#include "support/RawZip.h"
#include "tools/ToolProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
        sandbox
            .RunLine("cd out/deep; diff -r ../../design design; stat -c %Y design design/amp.sch")
            .m_Output,
        "1709214330\n1709214330\n");
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
    EXPECT_EQ(sandbox.RunLine("ls").m_Output, "a.zip\ndesign\n");
}

TEST(ZipCommandsTest, EachNameIsTakenOnce)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.GetFolder().MakeFile(u"other\\design\\amp.sch", "x");

    const CToolRun twice =
        sandbox.Run({"zip", "create", "a.zip", "design", "other/../design/amp.sch", "design"});
    EXPECT_EQ(twice.m_Output, "5 entries, 37 bytes\n");
    EXPECT_EQ(twice.m_ExitCode, 0);

    const CToolRun other =
        sandbox.RunLine("cd other; utility zip create b.zip ../design/amp.sch design/amp.sch");
    EXPECT_EQ(other.m_ExitCode, 3);
    EXPECT_EQ(other.m_Errors,
              "utility: design/amp.sch: another file has the name 'design/amp.sch' already\n");
    EXPECT_FALSE(sandbox.GetFolder().Exists(u"other\\b.zip"));
}

TEST(ZipCommandsTest, LinksAreFollowedToFilesButNotRoundInCircles)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.RunLine("ln -s design link; ln -s amp.sch design/again; ln -s .. design/up; "
                    "ln -s nowhere design/dead; touch -h -d '2024-02-29 13:45:30' design/*");

    const CToolRun run = sandbox.Run({"zip", "create", "a.zip", "link", "--json"});

    EXPECT_EQ(run.m_ExitCode, 1);
    EXPECT_EQ(run.m_Output, "{\"entries\": 6, \"bytes\": 67, \"passed_over\": 2}\n");
    EXPECT_EQ(run.m_Errors, "utility: link/dead: passed over: a link that leads nowhere\n"
                            "utility: link/up: passed over: a link to a folder\n");
    EXPECT_EQ(
        sandbox.RunLine("utility zip extract a.zip --into out >log; cat out/link/again").m_Output,
        "schematic schematic schematic\n");
}

TEST(ZipCommandsTest, PatternsThatFitNothingAreTold)
{
    const CToolSandbox sandbox;
    MakeDesign(sandbox);
    sandbox.Run({"zip", "create", "a.zip", "design"});
    for (const char* verb : {"list", "test", "extract"})
    {
        SCOPED_TRACE(verb);
        const CToolRun run = sandbox.Run({"zip", verb, "a.zip", "*.pcb", "amp*"});
        EXPECT_EQ(run.m_ExitCode, 1);
        EXPECT_EQ(run.m_Output, "");
        EXPECT_EQ(run.m_Errors, "utility: a.zip: no entry fits\n");
    }
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
    EXPECT_EQ(sandbox.Run({"zip", "test", "a.zip", "--json"}).m_Output,
              "{\"entries\": 4, \"damaged\": [\"bz\", \"aes\", \"odd\"]}\n");
    const std::string words =
        "utility: bz: it is compressed in a way that cannot be read: method 12 (bzip2)\n"
        "utility: aes: it is encrypted in a way that cannot be read: method 99 (AES), "
        "encrypted in a way of its own\n"
        "utility: odd: it is compressed in a way that cannot be read: method 1234\n";
    EXPECT_EQ(run.m_Errors, words);
    EXPECT_EQ(sandbox.Run({"zip", "extract", "a.zip", "--into", "out"}).m_Errors, words);
}

} // namespace
