#include "platform/system/SharedLibrary.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/NativePath.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(SharedLibraryTest, FindsWhatAModuleShows)
{
    HMODULE const module = LoadLibraryW(ClassicPath(UTILITY_CORE_LIBRARY));
    ASSERT_NE(module, nullptr);

    constexpr char MANGLED[] = "_ZN7utility12GetLastErrorEv";
    EXPECT_EQ(GetProcAddress(module, MANGLED), reinterpret_cast<void*>(&GetLastError));
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    EXPECT_TRUE(FreeLibrary(module));
}

TEST(SharedLibraryTest, TellsWhatIsNotThereFromWhatIsNoModule)
{
    const CTemporaryFolder folder;
    const struct
    {
        CString m_Path;
        DWORD m_Code;
    } cases[] = {
        {folder.PathOf(u"none.so"), ERROR_FILE_NOT_FOUND},
        {folder.PathOf(u"none\\none.so"), ERROR_PATH_NOT_FOUND},
        {folder.MakeFile(u"text.so", "no module"), ERROR_BAD_EXE_FORMAT},
        {folder.MakeFile(u"cut.so", "\x7F"
                                    "ELF\x02\x01\x01"),
         ERROR_BAD_EXE_FORMAT},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Code);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadLibraryW(row.m_Path), nullptr);
        EXPECT_EQ(GetLastError(), row.m_Code);
    }
}

TEST(SharedLibraryTest, NoModuleHasNoFunctionsAndCannotBeFreed)
{
    EXPECT_EQ(GetProcAddress(nullptr, "malloc"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    EXPECT_FALSE(FreeLibrary(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

} // namespace utility
