#include "frame/AppLog.h"

#include "files/DataFolder.h"
#include "frame/Application.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace utility
{
namespace
{

const CAppLogContext& Comms()
{
    static const CAppLogContext context(u"Comms", 0);
    return context;
}

class AppLogTest : public testing::Test
{
protected:
    AppLogTest()
    {
        CApplication::SetProductName(u"Log Test");
        m_Settings.SetValue(u"Logging", 1);
    }
    ~AppLogTest() override { CApplication::SetProductName(u""); }

    void Start(const char16_t* contexts, bool discardRepeats = false)
    {
        m_Settings.SetValue(u"LoggingContext", contexts);
        m_Settings.SetValue(u"LoggingDiscardRepeats", discardRepeats);
        CAppLog::Start();
    }
    static std::string GetDiskName()
    {
        return DiskPathBytes(GetDataFolder(CSIDL_PERSONAL, u"Log Test") + u"Application.Log");
    }
    static std::string Read()
    {
        std::ifstream file(GetDiskName(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    CSettingsSandbox m_Sandbox;
    CAppRegistry m_Settings{u"Application"};
};

TEST_F(AppLogTest, WithoutSettingsMakesThemAndWritesNoFile)
{
    m_Settings.DeleteAllValues();
    std::filesystem::remove(GetDiskName());
    CAppLog::Start();

    int logging = -1;
    int contexts = -1;
    EXPECT_TRUE(m_Settings.GetValue(u"Logging", logging));
    EXPECT_TRUE(m_Settings.GetValue(u"LoggingContext", contexts));
    EXPECT_EQ(logging, 0);
    EXPECT_EQ(contexts, 1);
    EXPECT_FALSE(std::filesystem::exists(GetDiskName()));
}

TEST_F(AppLogTest, ListsContextsByTheirTokens)
{
    Start(u"Comms;a,b c\t;!off =whole");
    const struct
    {
        const char16_t* m_Name;
        bool m_IsListed;
    } rows[] = {
        {u"Comms", true}, {u"COMMS", true}, {u"a", true},      {u"b", true},      {u"c", true},
        {u"c\t", false},  {u"off", false},  {u"=whole", true}, {u"whole", false}, {u"", false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Name)));
        EXPECT_EQ(CAppLog::IsStarted(CAppLogContext(row.m_Name, 0)), row.m_IsListed);
    }
    EXPECT_FALSE(CAppLog::IsStarted(0));
}

TEST_F(AppLogTest, BeginsAnewAndFormatsBothDialects)
{
    Start(u"Comms");
    CAppLog::LogStr(Comms(), u"old\n");
    Start(u"Comms");
    CAppLog::Log(Comms(), u"%2 before %1!03d!\n", 7, u"R");
    CAppLog::LogStr(Comms(), u"%s%04d 100%%\n", u"C", 9);
    CAppLog::LogMsg(Comms(), u"value %s\n", CString(u"Ω€😀"));
    CAppLog::LogMsg(Comms(), u"number %d\n", -3);
    CAppLog::LogStr(CAppLogContext(u"Silent", 0), u"unseen\n");
    CAppLog::LogStr(u"hollow %s\n", u"x");

    EXPECT_EQ(Read(), "R before 007\r\nC0009 100%\r\nvalue Ω€😀\r\nnumber -3\r\n");
}

TEST_F(AppLogTest, IndentsWhatAnEnterHolds)
{
    Start(u"Comms");
    CAppLog::Enter(Comms(), u"Opening %1", u"file");
    CAppLog::Enter(Comms(), u"Inner");
    CAppLog::LogStr(Comms(), u"deep\n");
    CAppLog::Leave(Comms());
    CAppLog::Leave(Comms());
    CAppLog::Leave(Comms()); // unpaired: the level below nought indents nothing
    CAppLog::LogStr(Comms(), u"flat\n");
    CAppLog::Enter(Comms(), u"up"); // from -1 to 0
    CAppLog::LogStr(Comms(), u"still flat\n");

    EXPECT_EQ(Read(), "Opening file\r\n(\r\n"
                      "    Inner    \r\n    (\r\n"
                      "        deep\r\n"
                      "    )\r\n)\r\n)\r\nflat\r\n"
                      "up\r\n(\r\nstill flat\r\n");
}

TEST_F(AppLogTest, CollapsesRepeats)
{
    Start(u"Comms", true);
    for (const char16_t* text : {u"a\n", u"a\n", u"a\n", u"b\n", u"a\n", u"A\n"})
        CAppLog::LogStr(Comms(), text);

    EXPECT_EQ(Read(), "a\r\n...repeated...\r\nb\r\na\r\nA\r\n");
}

TEST_F(AppLogTest, RepeatsLookAtNeitherIndentNorCall)
{
    Start(u"Comms", true);
    CAppLog::LogStr(Comms(), u"f\n");
    CAppLog::Enter(Comms(), u"f\n"); // equals the trace before
    CAppLog::Enter(Comms(), u"f\n"); // a bracket stood between

    EXPECT_EQ(Read(), "f\r\n...repeated...\r\n\r\n(\r\n    f\r\n    \r\n    (\r\n");
}

TEST_F(AppLogTest, GoesOnInANewFileWhenTheOldOneIsGoneOrMoved)
{
    Start(u"Comms");
    CAppLog::LogStr(Comms(), u"one\n");
    std::filesystem::rename(GetDiskName(), GetDiskName() + ".old");
    CAppLog::LogStr(Comms(), u"two\n");
    EXPECT_EQ(Read(), "two\r\n");

    std::filesystem::remove(GetDiskName());
    CAppLog::LogStr(Comms(), u"three\n");
    EXPECT_EQ(Read(), "three\r\n");
    std::filesystem::remove(GetDiskName() + ".old");
}

TEST_F(AppLogTest, IsSilentWhereItCannotWriteAndLeavesTheLastErrorAlone)
{
    Start(u"Comms");
    std::filesystem::remove(GetDiskName());
    std::filesystem::create_directory(GetDiskName());
    SetLastError(ERROR_DISK_FULL);
    CAppLog::LogStr(Comms(), u"nowhere\n");
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);

    std::filesystem::remove(GetDiskName());
    CAppLog::LogStr(Comms(), u"here\n");
    EXPECT_EQ(Read(), "here\r\n");
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
}

TEST_F(AppLogTest, IsSilentWhileTheDiskIsFullOrTheFolderIsGone)
{
    const std::filesystem::path log = GetDiskName();
    const std::filesystem::path folder = log.parent_path();
    Start(u"Comms");
    SetLastError(ERROR_FILE_NOT_FOUND);

    std::filesystem::remove(log);
    std::filesystem::create_symlink("/dev/full", log); // takes nothing: no space left
    CAppLog::LogStr(Comms(), u"lost\n");
    std::filesystem::remove(log);
    std::filesystem::rename(folder, folder.string() + ".away");
    CAppLog::LogStr(Comms(), u"lost, too\n");
    std::filesystem::rename(folder.string() + ".away", folder);
    CAppLog::LogStr(Comms(), u"kept\n");

    EXPECT_EQ(Read(), "kept\r\n");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

} // namespace
} // namespace utility
