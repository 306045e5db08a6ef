#include "files/zip/ZipFixture.h"
#include "files/zip/ZipWriter.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/FileStatus.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace utility
{

namespace
{

constexpr char PASSWORD[] = "secret word";

/// Runs a line for the shell in a folder; its exit code, with what it said shown where that is not
/// 0.
int RunIn(const CTemporaryFolder& folder, const std::string& line)
{
    const std::string whole = "cd '" + folder.GetNativePath().string() +
                              "' && export LC_ALL=C.UTF-8 TZ=UTC && { " + line + "; } >log 2>&1";
    const int status = std::system(whole.c_str());
    if (status != 0)
        ADD_FAILURE() << line << "\n" << folder.Read(u"log");
    return status;
}

/// What all programs must read right: folders, nothing, more than one piece, what is stored.
std::vector<CZipContent> Contents()
{
    std::string noise;
    unsigned seed = 1;
    for (int i = 0; i < 300'000; ++i)
    {
        seed = seed * 1103515245U + 12345U;
        noise += static_cast<char>(seed >> 24U);
    }
    return {{u"folder/", ""},
            {u"folder/none", ""},
            {u"folder/text.txt", "one line\n"},
            {u"folder/sub/noise.bin", noise},
            {u"folder/gr\u00F6\u00DFe.txt", "size"},
            {u"stored.gz", "not really packed"}};
}

void WriteTree(const CTemporaryFolder& folder, const std::vector<CZipContent>& contents)
{
    for (const CZipContent& each : contents)
    {
        const CString path = CString(u"tree\\") + each.m_Name;
        if (each.m_Name.View().ends_with(u'/'))
            folder.MakeFolder(path);
        else
            folder.MakeFile(path, each.m_Bytes);
    }
}

/// An archive's contents by name, folders left out: programs differ in which they name.
std::vector<CZipContent> FilesOf(HZIP zip)
{
    std::vector<CZipContent> files = ReadZip(zip);
    std::erase_if(files,
                  [](const CZipContent& each) { return each.m_Name.View().ends_with(u'/'); });
    std::ranges::sort(files, {}, &CZipContent::m_Name);
    return files;
}

std::vector<CZipContent> ExpectedFiles()
{
    std::vector<CZipContent> files = Contents();
    std::erase_if(files,
                  [](const CZipContent& each) { return each.m_Name.View().ends_with(u'/'); });
    std::ranges::sort(files, {}, &CZipContent::m_Name);
    return files;
}

/// Lets all programs check an archive, and unpack it, and compares what comes out.
void ExpectAcceptedByAll(const CTemporaryFolder& folder, const std::string& password)
{
    RunIn(folder, "unzip -P '" + password + "' -t made.zip");
    RunIn(folder, "7z t '-p" + password + "' made.zip");
    RunIn(folder, "bsdtar -tf made.zip");
    RunIn(folder, "python3 -c \"import zipfile; z = zipfile.ZipFile('made.zip'); z.setpassword(b'" +
                      password + "'); bad = z.testzip(); assert bad is None, bad\"");
    RunIn(folder, "unzip -P '" + password + "' -q made.zip -d unzipped && diff -r tree unzipped");
    RunIn(folder, "7z x '-p" + password + "' -oseven made.zip && diff -r tree seven");
}

} // namespace

TEST(ZipInterchangeTest, OtherProgramsAcceptOurArchives)
{
    for (const bool isEncrypted : {false, true})
    {
        SCOPED_TRACE(isEncrypted);
        const CTemporaryFolder folder;
        WriteTree(folder, Contents());
        folder.MakeFile(
            u"made.zip",
            MakeZip(Contents(), isEncrypted ? FromUtf8(PASSWORD).GetString() : nullptr));
        ExpectAcceptedByAll(folder, PASSWORD);
    }
}

TEST(ZipInterchangeTest, OtherProgramsAcceptOurZip64Records)
{
    const CTemporaryFolder folder;
    WriteTree(folder, Contents());
    CZipWriter writer(nullptr, {.m_Size = 1000, .m_Count = 2});
    ASSERT_EQ(writer.OpenFile(folder.PathOf(u"made.zip")), ZIP_SUCCESS);
    for (const CZipContent& each : Contents())
    {
        const bool isFolder = each.m_Name.View().ends_with(u'/');
        ASSERT_EQ(isFolder
                      ? writer.AddFolder(each.m_Name, nullptr)
                      : writer.AddMemory(each.m_Name, each.m_Bytes.data(), each.m_Bytes.size()),
                  ZIP_SUCCESS);
    }
    ASSERT_EQ(writer.End(), ZIP_SUCCESS);
    ExpectAcceptedByAll(folder, "");
}

TEST(ZipInterchangeTest, OurDatesAndMarksAreTheirs)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"tree\\a", "x");
    RunIn(folder, "touch -d '2024-02-29 13:45:31' tree/a && chmod 444 tree/a");
    const HZIP made = CreateZip(folder.PathOf(u"made.zip"), nullptr);
    ASSERT_EQ(ZipAdd(made, u"a", folder.PathOf(u"tree\\a").GetString()), ZIP_SUCCESS);
    ASSERT_EQ(CloseZipZ(made), ZIP_SUCCESS);

    RunIn(folder, "unzip -q made.zip -d out && stat -c '%Y %a' out/a | grep -qx '1709214331 444'");
    RunIn(folder, "bsdtar -xf made.zip && stat -c '%Y' a | grep -qx 1709214331");
}

TEST(ZipInterchangeTest, WeReadTheArchivesOfOtherPrograms)
{
    const struct
    {
        const char* m_Name;
        std::string m_Line;
        const char* m_Password = nullptr;
    } cases[] = {
        {"zip", "cd tree && zip -r ../theirs.zip ."},
        {"zip, extra fields off, comment", "cd tree && echo note | zip -rXz ../theirs.zip ."},
        {"zip, password", "cd tree && zip -r -P word ../theirs.zip .", "word"},
        {"zip, streamed, password", "cd tree && zip -r -P word - . > ../theirs.zip", "word"},
        {"zip, streamed", "cd tree && zip -r - . | cat > ../theirs.zip"},
        {"zip, Zip64", "cd tree && zip -r -fz ../theirs.zip ."},
        {"zip, stored", "cd tree && zip -r0 ../theirs.zip ."},
        {"zip, program in front",
         "cd tree && zip -r ../a.zip . && cd .. && (echo '#!/bin/sh'; cat a.zip) > theirs.zip"},
        {"zip, program in front, told",
         "cd tree && zip -r ../a.zip . && cd .. && (echo '#!/bin/sh'; cat a.zip) > theirs.zip && "
         "zip -A theirs.zip"},
        {"7z", "cd tree && 7z a -tzip ../theirs.zip ."},
        {"7z, password", "cd tree && 7z a -tzip -mem=ZipCrypto -pword ../theirs.zip .", "word"},
        {"bsdtar", "cd tree && bsdtar -a -cf ../theirs.zip *"},
        {"bsdtar, streamed", "cd tree && bsdtar --format zip -cf - * | cat > ../theirs.zip"},
        {"bsdtar, password",
         "cd tree && bsdtar --format zip --options zip:encryption=zipcrypt --passphrase word -cf "
         "../theirs.zip *",
         "word"},
        {"Python", "cd tree && python3 -m zipfile -c ../theirs.zip *"},
        {"Python, Zip64 and a comment",
         "cd tree && python3 -c \"import zipfile, os\n"
         "z = zipfile.ZipFile('../theirs.zip', 'w', zipfile.ZIP_DEFLATED)\n"
         "z.comment = b'PK\\x05\\x06 is no end'\n"
         "for root, folders, files in os.walk('.'):\n"
         "  for name in folders + files:\n"
         "    path = os.path.join(root, name)\n"
         "    if os.path.isdir(path): z.write(path)\n"
         "    else:\n"
         "      with z.open(os.path.relpath(path), 'w', force_zip64=True) as entry:\n"
         "        entry.write(open(path, 'rb').read())\n"
         "z.close()\""},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.m_Name);
        const CTemporaryFolder folder;
        WriteTree(folder, Contents());
        ASSERT_EQ(RunIn(folder, each.m_Line), 0);

        const CZipClosing zip(OpenZip(folder.PathOf(u"theirs.zip"), each.m_Password));

        ASSERT_TRUE(IsZipHandleU(zip)) << ToUtf8(LastZipTextU().View());
        EXPECT_TRUE(FilesOf(zip) == ExpectedFiles());
    }
}

TEST(ZipInterchangeTest, TheirDatesMarksAndLinksAreOurs)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"a", "x");
    RunIn(folder, "touch -d '2024-02-29 13:45:31' a && chmod 444 a && ln -s a link && mkdir sub && "
                  "zip -ry theirs.zip a link sub");
    const CZipClosing zip(OpenZip(folder.PathOf(u"theirs.zip"), nullptr));
    ZIPENTRY file{};
    ZIPENTRY folderEntry{};
    ZIPENTRYINFO link;
    int index = -1;
    ASSERT_EQ(FindZipItem(zip, u"a", false, nullptr, &file), ZIP_SUCCESS);
    ASSERT_EQ(FindZipItem(zip, u"sub/", false, nullptr, &folderEntry), ZIP_SUCCESS);
    ASSERT_EQ(FindZipItem(zip, u"link", false, &index, nullptr), ZIP_SUCCESS);
    ASSERT_EQ(GetZipItemInfo(zip, index, &link), ZIP_SUCCESS);
    ASSERT_EQ(UnzipItem(zip, index, folder.PathOf(u"out\\link")), ZIP_SUCCESS);

    EXPECT_EQ(CTime(file.mtime), CTime(1709214331));
    EXPECT_EQ(file.attr, CFileStatus::readOnly);
    EXPECT_EQ(folderEntry.attr, CFileStatus::directory);
    EXPECT_TRUE(link.is_link);
    EXPECT_FALSE(std::filesystem::is_symlink(folder.GetNativePath() / "out" / "link"));
    EXPECT_EQ(folder.Read(u"out\\link"), "a");
}

} // namespace utility
