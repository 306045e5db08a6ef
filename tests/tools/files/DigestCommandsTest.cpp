#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;
using namespace std::string_literals;

namespace
{

const std::string KEY = "0123456789abcdef";

TEST(Md5CommandsTest, ListsAreThoseOfTheSystemsTool)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"a b.txt", "abc");
    sandbox.GetFolder().MakeFile(u"line\nend", "");

    const CToolRun both =
        sandbox.RunLine("utility md5 'a b.txt' 'line\nend' >list; md5sum 'a b.txt' "
                        "'line\nend' | diff list - && md5sum -c list");
    const CToolRun check = sandbox.RunLine("md5sum -b 'a b.txt' 'line\nend' | utility md5 --check");

    EXPECT_EQ(both.m_ExitCode, 0) << both.m_Output << both.m_Errors;
    EXPECT_EQ(check.m_ExitCode, 0);
    EXPECT_EQ(check.m_Output, "a b.txt: OK\nline\nend: OK\n");
}

TEST(Md5CommandsTest, CheckTellsWhatDiffersAndWhatCannotBeRead)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"a", "abc");
    const std::string good = "900150983CD24FB0D6963F7D28E17F72  a\r\n";
    const std::string bad = "900150983cd24fb0d6963f7d28e17f73  a\n";
    const std::string absent = "900150983cd24fb0d6963f7d28e17f73  b\n";
    const struct
    {
        std::string List;
        int ExitCode;
        std::string Output;
        std::string Errors;
    } cases[] = {
        {"# made today\n" + good, 0, "a: OK\n", ""},
        {good + bad, 1, "a: OK\na: FAILED\n", ""},
        {bad + absent, 3, "a: FAILED\nb: FAILED open or read\n",
         "utility: b: No such file or directory\n"},
        {"abc  a\n" + good, 3, "a: OK\n", "utility: -: 'abc  a' is no line of a digest list\n"},
        {"", 3, "", "utility: -: it holds no digest\n"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.List);
        const CToolRun run = sandbox.Run({"md5", "--check", "-"}, test.List);
        EXPECT_EQ(run.m_ExitCode, test.ExitCode);
        EXPECT_EQ(run.m_Output, test.Output);
        EXPECT_EQ(run.m_Errors, test.Errors);
    }
    EXPECT_EQ(sandbox.Run({"md5", "--check", "--json"}, bad).m_Output,
              "[{\"file\": \"a\", \"result\": \"differs\"}]\n");
    EXPECT_EQ(sandbox.Run({"md5", "none", "a"}).m_Output, "900150983cd24fb0d6963f7d28e17f72  a\n");
}

TEST(XXTeaCommandsTest, WhatIsEncipheredComesBackUnderTheSameKeyAlone)
{
    const CToolSandbox sandbox;
    const std::string bytes = "\0binary\xFF\r\n\0"s;
    sandbox.GetFolder().MakeFile(u"plain", bytes);
    sandbox.GetFolder().MakeFile(u"key", KEY);
    sandbox.GetFolder().MakeFile(u"other", "0123456789abcdeF");
    sandbox.GetFolder().MakeFile(u"short", "0123456789abcde");
    sandbox.GetFolder().MakeFile(u"long", KEY + "\n");

    EXPECT_EQ(sandbox.Run({"xxtea", "encrypt", "plain", "cipher", "--key-file", "key"}).m_ExitCode,
              0);
    EXPECT_EQ(sandbox.GetFolder().Read(u"cipher").size(), 16U);
    EXPECT_EQ(sandbox.Run({"xxtea", "decrypt", "cipher", "--key-file", "key"}).m_Output, bytes);
    EXPECT_EQ(sandbox
                  .Run({"xxtea", "decrypt", "-", "--key-file", "key"},
                       sandbox.GetFolder().Read(u"cipher"))
                  .m_Output,
              bytes);

    const struct
    {
        const char* Key;
        const char* Told;
    } cases[] = {
        {"other", "utility: cipher: the key does not fit, or the data is damaged\n"},
        {"short", "utility: short: a key file holds 16 bytes exactly\n"},
        {"long", "utility: long: a key file holds 16 bytes exactly\n"},
        {"none", "utility: none: No such file or directory\n"},
    };
    for (const auto& test : cases)
    {
        const CToolRun run =
            sandbox.Run({"xxtea", "decrypt", "cipher", "plain", "--key-file", test.Key});
        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors, test.Told);
        EXPECT_EQ(sandbox.GetFolder().Read(u"plain"), bytes);
    }
    EXPECT_EQ(sandbox.Run({"xxtea", "encrypt", "plain"}).m_ExitCode, 2);
}

} // namespace
