#include "platform/base/Encoding.h"
#include "platform/db/Database.h"

#include "support/DatabaseServers.h"
#include "support/TerminalProcess.h"
#include "tools/ToolProcess.h"
#include "utility/command/CommandTable.h"
#include "utility/host/ArgumentList.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace utility
{

namespace
{

using testing::HasSubstr;
using testing::Not;

constexpr char MARKER[] = "uns4gb4r";

/// A database whose server asks its user for a password; the string that names no password.
std::string GuardedSource()
{
    CDatabaseServers& servers = CDatabaseServers::Get();
    const CString source = servers.MakeSource(EServer::PostgreSQL);
    CDatabase database;
    database.Open(nullptr, FALSE, FALSE, source);
    database.ExecuteSQL(u"CREATE TABLE [Parts] ([Name] VARCHAR(20))");
    database.ExecuteSQL(CString(u"GRANT ALL ON [Parts] TO ") + GUARDED_ROLE);
    CString guarded = source;
    guarded.Replace(u"Username=utility", CString(u"Username=") + GUARDED_ROLE);
    return ToUtf8(guarded.View());
}

std::string GuardedPassword()
{
    return ToUtf8(GUARDED_PASSWORD);
}

TEST(DbPasswordTest, TerminalIsAskedUnseenWhenTheServerWantsOne)
{
    const std::string source = GuardedSource();
    const std::vector<std::string> words = {UTILITY_TOOL, "db", "tables", "--from", source};

    const CTerminalRun right = RunOnTerminal(words, GuardedPassword() + "\n");
    EXPECT_EQ(right.m_ExitCode, 0);
    EXPECT_EQ(right.m_Screen, "Password for " + source + ": \nParts\n");

    const CTerminalRun wrong = RunOnTerminal(words, std::string(MARKER) + "\n");
    EXPECT_EQ(wrong.m_ExitCode, 3);
    EXPECT_THAT(wrong.m_Screen, HasSubstr("password authentication failed"));
    EXPECT_THAT(wrong.m_Screen, Not(HasSubstr(MARKER)));

    CTerminalProcess asked(words);
    ASSERT_TRUE(asked.AwaitText("Password for"));
    asked.Type(INTERRUPT); // which is no signal once the terminal is quiet
    const CTerminalRun givenUp = asked.Finish();
    EXPECT_EQ(givenUp.m_ExitCode, 3);
    EXPECT_THAT(givenUp.m_Screen, HasSubstr("no password was given"));

    const std::string trusting =
        ToUtf8(CDatabaseServers::Get().MakeSource(EServer::MariaDB).View());
    const CTerminalRun unasked = RunOnTerminal(
        std::vector<std::string>{UTILITY_TOOL, "db", "tables", "--from", trusting}, "");
    EXPECT_EQ(unasked.m_ExitCode, 0);
    EXPECT_EQ(unasked.m_Screen, "");
}

TEST(DbPasswordTest, WithoutTerminalTheFileIsNamed)
{
    const CToolRun run = RunTool({"db", "tables", "--from", GuardedSource()});

    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_THAT(run.m_Errors, HasSubstr("without a terminal see --password-file\n"));
}

TEST(DbPasswordTest, FirstLineOfAFileIsTaken)
{
    const CToolSandbox tool;
    const std::string source = GuardedSource();
    tool.GetFolder().MakeFile(u"right", GuardedPassword() + "\nand no more\n");
    tool.GetFolder().MakeFile(u"wrong", std::string(MARKER) + "\n");
    tool.GetFolder().MakeFile(u"empty", "\n");
    tool.RunLine("chmod 600 *; cp right open; chmod 640 open");
    const struct
    {
        std::string m_Source;
        const char* m_File;
        int m_ExitCode;
        const char* m_Words;
    } cases[] = {
        {source, "right", 0, ""},
        {source, "open", 0, "utility: warning: other users may read the password in open\n"},
        {source, "wrong", 3, "password authentication failed"},
        {source, "empty", 3, "empty: its first line is empty, so it is no password"},
        {source, "absent", 3, "absent: No such file or directory"},
        {source + ";PWD=" + MARKER, "right", 3, "--password-file is one too many"},
        {"parts.db", "right", 3, "a SQLite file has no password"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(std::string(row.m_File) + " " + row.m_Words);

        const CToolRun run =
            tool.Run({"db", "tables", "--from", row.m_Source, "--password-file", row.m_File});

        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_THAT(run.m_Errors, HasSubstr(row.m_Words));
        EXPECT_THAT(run.m_Errors, Not(HasSubstr(MARKER)));
        EXPECT_THAT(run.m_Errors, Not(HasSubstr(GuardedPassword())));
    }
}

TEST(DbPasswordTest, EveryCommandOnASourceTakesThePasswordFromAFile)
{
    for (const CCommand* const command : CommandsOfGroup("db"))
    {
        const auto has = [&](std::string_view name)
        {
            return std::any_of(command->m_Options.begin(), command->m_Options.end(),
                               [&](const CCommandOption& option) { return option.m_Name == name; });
        };
        EXPECT_TRUE(has("password-file")) << command->m_Verb;
    }
}

TEST(DbPasswordTest, ArgumentsKeepTheirLengthWithoutTheirPasswords)
{
    const struct
    {
        const char* m_Word;
        const char* m_Hidden;
    } cases[] = {
        {"DSN=parts;PWD=secret", "DSN=parts;PWD=***   "},
        {"--from=PWD=secret;DSN=parts", "--from=PWD=***;DSN=parts   "},
        {"DSN=x;Password={a;b};UID=me", "DSN=x;Password=***;UID=me  "},
        {"PWD=a;X=1", "PWD=***;X"},
        {"PWD=", "PWD="},
        {"Name|Equal to|x", "Name|Equal to|x"},
        {"", ""},
    };
    for (const auto& row : cases)
    {
        std::string word = row.m_Word;
        char* argument = word.data();

        HidePasswords(1, &argument);

        EXPECT_EQ(word, row.m_Hidden);
    }
}

/// Where a PostgreSQL server would wait for programs, in a folder.
class CSilentServer
{
public:
    explicit CSilentServer(const CTemporaryFolder& folder)
        : m_Socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const std::string path = (folder.GetNativePath() / ".s.PGSQL.5432").string();
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(m_Socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(m_Socket, 1), 0);
    }
    ~CSilentServer()
    {
        if (m_Socket >= 0)
            close(m_Socket);
    }
    CSilentServer(const CSilentServer&) = delete;
    CSilentServer& operator=(const CSilentServer&) = delete;

    /// Waits for a program and reads what the system shows of its arguments, a blank between; then
    /// hangs up for good.
    std::string ReadArgumentsOfCaller()
    {
        const int caller = accept(m_Socket, nullptr, nullptr);
        ucred peer = {};
        socklen_t size = sizeof(peer);
        EXPECT_EQ(getsockopt(caller, SOL_SOCKET, SO_PEERCRED, &peer, &size), 0);
        std::ifstream list("/proc/" + std::to_string(peer.pid) + "/cmdline");
        std::stringstream text;
        text << list.rdbuf();
        close(std::exchange(m_Socket, -1)); // first, so that another try is refused
        close(caller);
        std::string arguments = text.str();
        std::replace(arguments.begin(), arguments.end(), '\0', ' ');
        return arguments;
    }

private:
    int m_Socket;
};

TEST(DbPasswordTest, PasswordOnTheCommandLineIsHiddenAndWarnedAbout)
{
    const CToolSandbox tool;
    CSilentServer server(tool.GetFolder());
    const std::string source =
        "DRIVER={PostgreSQL Unicode};Servername=" + tool.GetFolder().GetNativePath().string() +
        ";Username=x;Database=x;SSLmode=disable;PWD=" + MARKER;
    CToolRun run;
    std::thread caller([&] { run = tool.Run({"db", "tables", "--from", source}); });

    const std::string arguments = server.ReadArgumentsOfCaller();
    caller.join();

    EXPECT_THAT(arguments, HasSubstr("db tables --from DRIVER={PostgreSQL Unicode};"));
    EXPECT_THAT(arguments, HasSubstr(";PWD=***"));
    EXPECT_THAT(arguments, Not(HasSubstr(MARKER)));
    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_THAT(run.m_Errors, HasSubstr("utility: warning: a password on the command line"));
    EXPECT_THAT(run.m_Errors, Not(HasSubstr(MARKER)));
}

TEST(DbPasswordTest, NothingThatIsToldHasThePassword)
{
    const CToolSandbox tool;
    tool.RunLine(
        "utility log contexts Db DBADatabase DBADatabaseDetails ODBCRecordset; utility log on");
    const std::string live =
        ToUtf8(CDatabaseServers::Get().MakeSource(EServer::PostgreSQL).View()) + ";PWD=" + MARKER;
    const std::string dead =
        std::string("DRIVER={MariaDB Unicode};SOCKET=/absent;UID=x;Password={") + MARKER +
        "};CONN_TIMEOUT=1";
    std::string told;
    const auto run = [&](std::vector<std::string> words)
    {
        const CToolRun result = tool.Run(words);
        told += result.m_Output + result.m_Errors;
        words.emplace_back("--json");
        const CToolRun json = tool.Run(words);
        told += json.m_Output + json.m_Errors + tool.RunLine("utility log show").m_Output;
    };
    for (const CCommand* const command : CommandsOfGroup("db"))
        for (const std::string& source : {live, dead})
        {
            const std::string option = command->m_Options.front().m_Name;
            if (option == "into" && source == live)
                continue; // it would be filled, which tells no more
            std::vector<std::string> words = {"db", command->m_Verb};
            for (const CCommandArgument& argument : command->m_Arguments)
                words.emplace_back(argument.m_Choices.empty() ? "Absent"
                                                              : argument.m_Choices.front());
            words.insert(words.end(), {"--" + option, source});
            run(words);
            words.push_back(source); // one too many, or where a name belongs
            run(words);
        }
    for (const std::string& source : {live, dead})
    {
        run({"db", "check", source});
        run({"db", "copy", source, "copy.db"});
        run({"db", "copy", "copy.db", source, "Absent"});
    }
    run({live});
    run({"db", live});
    run({"db", "query", "Absent", "--limit", live});

    EXPECT_THAT(told, HasSubstr("PWD=***"));
    EXPECT_THAT(told, HasSubstr("Password=***"));
    EXPECT_THAT(told, Not(HasSubstr(MARKER)));
}

} // namespace

} // namespace utility
