#include "files/MD5Checksum.h"

#include "files/FilePath.h"
#include "files/MD5Text.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileException.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

std::string DigestOf(std::string bytes)
{
    return ToUtf8(CMD5Checksum::GetMD5(reinterpret_cast<unsigned char*>(bytes.data()),
                                       static_cast<unsigned int>(bytes.size()))
                      .View());
}

TEST(MD5ChecksumTest, DigestsAreThoseOfTheStandard)
{
    const struct
    {
        std::string Bytes;
        const char* Digest;
    } cases[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
        // Around the end of a block, where the count of bits finds room or does not
        {std::string(55, 'a'), "ef1772b6dff9a122358552954ad0df65"},
        {std::string(56, 'a'), "3b0c8ac703f828b04c6c197006d17218"},
        {std::string(63, 'a'), "b06521f39153d618550606be297466d5"},
        {std::string(64, 'a'), "014842d480b571495a4a0363793f7367"},
        {std::string(65, 'a'), "c743a45e0d2e6a95cb859adae0248435"},
        {std::string(200001, '\xE9'), "1ed55ef48a90b76088a3a897403aa349"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Bytes.size());
        EXPECT_EQ(DigestOf(test.Bytes), test.Digest);
    }
    EXPECT_EQ(CMD5Checksum::GetMD5(static_cast<unsigned char*>(nullptr), 0),
              u"d41d8cd98f00b204e9800998ecf8427e");
}

TEST(MD5ChecksumTest, FileIsReadFromItsPositionInWhateverPieces)
{
    const CTemporaryFolder folder;
    const std::string bytes(200001, 'x');
    const CString path = folder.MakeFile(u"a", "abc" + bytes);
    CFile file(path, CFile::modeRead);
    file.Seek(3, CFile::begin);

    EXPECT_EQ(ToUtf8(CMD5Checksum::GetMD5(file).View()), DigestOf(bytes));
    EXPECT_EQ(ToUtf8(CMD5Checksum::GetMD5(path).View()), DigestOf("abc" + bytes));
    EXPECT_EQ(CMD5Checksum::GetMD5(file), u"d41d8cd98f00b204e9800998ecf8427e") << "at its end";
}

TEST(MD5ChecksumTest, AFileThatCannotBeOpenedRaises)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", "abc");
    const CFile writer(path, CFile::modeReadWrite | CFile::shareDenyNone);
    const struct
    {
        CString Path;
        LONG Code;
    } cases[] = {{folder.PathOf(u"absent"), ERROR_FILE_NOT_FOUND}, {path, ERROR_SHARING_VIOLATION}};
    for (const auto& test : cases)
    {
        SCOPED_TRACE(ToUtf8(test.Path.View()));
        try
        {
            CMD5Checksum::GetMD5(test.Path);
            ADD_FAILURE() << "nothing was raised";
        }
        catch (CFileException* exception)
        {
            const CExceptionGuard guard(exception);
            EXPECT_EQ(exception->m_lOsError, test.Code);
        }
    }
}

TEST(MD5ChecksumTest, TextsCountByTheirLowBytesAndReadInUpperCase)
{
    EXPECT_EQ(GetMD5(CString()), u"D41D8CD98F00B204E9800998ECF8427E");
    EXPECT_EQ(GetMD5(CString(u"abc")), u"900150983CD24FB0D6963F7D28E17F72");
    EXPECT_EQ(GetMD5(CString(u"\u0161bc")), GetMD5(CString(u"abc")));
    EXPECT_EQ(ToUtf8(GetMD5(CString(u"\u00E9")).View()), "3406877694691DDD1DFB0ACA54681407");

    const CTemporaryFolder folder;
    EXPECT_EQ(GetMD5(CFilePath(folder.MakeFile(u"a", "abc"))), u"900150983CD24FB0D6963F7D28E17F72");
}

} // namespace
