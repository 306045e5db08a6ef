#include "platform/system/file/WholeFile.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

TEST(WholeFileTest, AllBytesAreReadUpToTheLimit)
{
    const CTemporaryFolder folder;
    const std::string content("a\0\r\nb", 5);
    folder.MakeFile(u"a", content);
    folder.MakeFile(u"empty", "");
    std::string bytes = "before";

    EXPECT_TRUE(ReadWholeFile(folder.PathOf(u"a"), bytes, CFile::shareDenyNone, content.size()));
    EXPECT_EQ(bytes, content);
    EXPECT_TRUE(ReadWholeFile(folder.PathOf(u"empty"), bytes));
    EXPECT_EQ(bytes, "");

    EXPECT_FALSE(
        ReadWholeFile(folder.PathOf(u"a"), bytes, CFile::shareDenyNone, content.size() - 1));
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_FALSE(ReadWholeFile(folder.PathOf(u"absent"), bytes));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}
