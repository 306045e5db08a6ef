#include "database/ODBCRecordset.h"
#include "platform/base/Encoding.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"

#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

using namespace utility;

namespace
{

constexpr int SMALL = 3;
constexpr int LARGE =
    60000; // rows that take seconds, so that the signal comes while they are written

std::string MakeLibrary(int symbols)
{
    std::string text = "(kicad_symbol_lib\n";
    for (int number = 0; number < symbols; number++)
        text += "(symbol \"S" + std::to_string(number) + "\" (property \"Value\" \"v\"))\n";
    return text + ")\n";
}

/// The stored rows of each library; none while there is no table.
std::map<CString, int> CountRows(CDatabase& database)
{
    std::map<CString, int> counts;
    try
    {
        CODBCRecordset rows(&database);
        for (rows.Open(u"SELECT [Library], COUNT(*) FROM [Symbols] GROUP BY [Library]");
             !rows.IsEOF(); rows.MoveNext())
            counts[rows.GetString(0)] = rows.GetInt(1);
    }
    catch (CDBException* exception)
    {
        exception->Delete();
    }
    return counts;
}

/// Starts an import of the folder that is killed by the signal as soon as library B stands; its
/// exit status.
int ImportUntilBStands(const CTemporaryFolder& folder, CDatabase& database, int signal)
{
    const std::string work = folder.GetNativePath().string();
    const pid_t tool = fork();
    if (tool == 0)
    {
        if (chdir(work.c_str()) == 0 && std::freopen("errors", "w", stderr))
            execl(UTILITY_TOOL, "utility", "db", "import-symbols", "lib", nullptr);
        _exit(127);
    }
    int status = 0;
    while (waitpid(tool, &status, WNOHANG) == 0)
        if (CountRows(database).contains(u"B"))
        {
            kill(tool, signal);
            waitpid(tool, &status, 0);
            break;
        }
    return status;
}

TEST(DbInterruptTest, AnImportThatIsStoppedLeavesWholeLibrariesOnly)
{
    for (const int signal : {SIGINT, SIGKILL})
    {
        SCOPED_TRACE(signal);
        const CTemporaryFolder folder;
        folder.MakeFile(u"lib\\A.kicad_sym", MakeLibrary(SMALL));
        folder.MakeFile(u"lib\\B.kicad_sym", MakeLibrary(SMALL));
        folder.MakeFile(u"lib\\C.kicad_sym", MakeLibrary(LARGE));
        folder.MakeFile(u"lib\\D.kicad_sym", MakeLibrary(SMALL));
        CDatabase database;
        database.Open(
            nullptr, FALSE, FALSE,
            FromUtf8("DRIVER=SQLite3;Database=" + (folder.GetNativePath() / "parts.db").string()));

        const int status = ImportUntilBStands(folder, database, signal);

        if (signal == SIGINT)
        {
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3) << status;
            EXPECT_EQ(folder.Read(u"errors"),
                      "utility: interrupted: 2 of 4 libraries are stored\n");
        }
        EXPECT_EQ(CountRows(database), (std::map<CString, int>{{u"A", SMALL}, {u"B", SMALL}}));
    }
}

} // namespace
