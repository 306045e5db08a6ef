#include "platform/system/file/StdioFile.h"

#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr UINT CREATE = CFile::modeCreate | CFile::modeWrite;

TEST(StdioFileTest, TextModeAloneChangesLineEndsOfStrings)
{
    const std::pair<UINT, const char*> cases[] = {{CFile::typeText, "a\r\nb\n"},
                                                  {CFile::typeBinary, "a\nb\n"}};
    for (const auto& [flags, bytes] : cases)
    {
        SCOPED_TRACE(bytes);
        const CTemporaryFolder folder;
        CStdioFile file(folder.PathOf(u"a"), CREATE | flags);
        file.WriteString(u"a\n");
        file.Write("b\n", 2);
        file.Close();
        EXPECT_EQ(folder.Read(u"a"), bytes);

        CStdioFile reader(folder.PathOf(u"a"), CFile::modeRead | flags);
        CString line;
        EXPECT_TRUE(reader.ReadString(line));
        EXPECT_EQ(line, u"a");
        EXPECT_TRUE(reader.ReadString(line));
        EXPECT_EQ(line, u"b");
        EXPECT_FALSE(reader.ReadString(line));
    }
}

TEST(StdioFileTest, WhatIsHeldIsWrittenWhenTheObjectGoes)
{
    const CTemporaryFolder folder;
    {
        CStdioFile file(folder.PathOf(u"a"), CREATE);
        file.WriteString(u"text");
        EXPECT_EQ(folder.Read(u"a"), "");
        EXPECT_EQ(file.GetLength(), 4U);
    }

    EXPECT_EQ(folder.Read(u"a"), "text");
}

TEST(StdioFileTest, AFailedWriteIsMetByCloseWhichClosesAllTheSame)
{
    CStdioFile file(u"\\dev\\full", CFile::modeWrite);
    file.WriteString(u"text");
    int cause = CFileException::none;
    try
    {
        file.Close();
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        cause = exception->m_cause;
    }

    EXPECT_EQ(cause, CFileException::diskFull);
    EXPECT_FALSE(file.IsOpen());
}

} // namespace
