#include "platform/base/object/Archive.h"

#include "platform/base/object/ArchiveException.h"
#include "platform/system/file/File.h"

#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

class ArchiveTest : public testing::Test
{
protected:
    /// The bytes that an archive leaves in its file.
    std::string Store(const std::function<void(CArchive&)>& write, int bufferSize = 16) const
    {
        CFile file(m_Folder.PathOf(u"a.bin"), CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store, bufferSize);
        write(archive);
        archive.Close();
        file.Close();
        return m_Folder.Read(u"a.bin");
    }

    void Load(std::string_view bytes, const std::function<void(CArchive&)>& read) const
    {
        CFile file(m_Folder.MakeFile(u"a.bin", bytes), CFile::modeRead);
        CArchive archive(&file, CArchive::load, 16);
        read(archive);
    }

    CTemporaryFolder m_Folder;
};

int CauseOf(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (CArchiveException* exception)
    {
        const CExceptionGuard guard(exception);
        return exception->m_cause;
    }
    return CArchiveException::none;
}

TEST_F(ArchiveTest, NumbersStandWithTheirLowByteFirstAndComeBack)
{
    const std::string bytes = Store(
        [](CArchive& archive)
        {
            archive << BYTE{0xFE} << WORD{0x1234} << std::int32_t{-2} << DWORD{0x89ABCDEF}
                    << std::int64_t{-3} << 1.5 << char16_t{u'Ω'};
        });
    using namespace std::string_literals;
    EXPECT_EQ(bytes, "\xFE\x34\x12\xFE\xFF\xFF\xFF\xEF\xCD\xAB\x89\xFD\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                     "\0\0\0\0\0\0\xF8\x3F\xA9\x03"s);

    Load(bytes,
         [](CArchive& archive)
         {
             BYTE byte = 0;
             WORD word = 0;
             std::int32_t negative = 0;
             DWORD large = 0;
             std::int64_t wide = 0;
             double real = 0;
             char16_t unit = 0;
             archive >> byte >> word >> negative >> large >> wide >> real >> unit;
             EXPECT_EQ(byte, 0xFE);
             EXPECT_EQ(word, 0x1234);
             EXPECT_EQ(negative, -2);
             EXPECT_EQ(large, 0x89ABCDEF);
             EXPECT_EQ(wide, -3);
             EXPECT_EQ(real, 1.5);
             EXPECT_EQ(unit, u'Ω');
         });
}

TEST_F(ArchiveTest, LengthsTakeTheShortestFormAndComeBack)
{
    using namespace std::string_literals;
    const struct
    {
        std::uint64_t m_Length;
        bool m_Unicode;
        std::string m_Bytes;
    } rows[] = {
        {0, false, "\0"s},
        {254, false, "\xFE"s},
        {255, false, "\xFF\xFF\0"s},
        {65533, false, "\xFF\xFD\xFF"s},
        {65534, false, "\xFF\xFF\xFF\xFE\xFF\0\0"s},
        {0xFFFFFFFE, false, "\xFF\xFF\xFF\xFE\xFF\xFF\xFF"s},
        {0xFFFFFFFF, false, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\0\0\0\0"s},
        {3, true, "\xFF\xFE\xFF\x03"s},
        {256, true, "\xFF\xFE\xFF\xFF\0\x01"s},
        {65534, true, "\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\0\0"s},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Length);
        EXPECT_EQ(Store([&](CArchive& archive)
                        { AfxWriteStringLength(archive, row.m_Length, row.m_Unicode); }),
                  row.m_Bytes);
        Load(row.m_Bytes,
             [&](CArchive& archive)
             {
                 int unitSize = 0;
                 EXPECT_EQ(AfxReadStringLength(archive, unitSize), row.m_Length);
                 EXPECT_EQ(unitSize, row.m_Unicode ? 2 : 1);
             });
    }
}

TEST_F(ArchiveTest, LinesEndAtALineFeedOrTheLimit)
{
    const std::string bytes =
        Store([](CArchive& archive) { archive.WriteString(u"one\r\n\ntwo\nlast"); });

    Load(bytes,
         [](CArchive& archive)
         {
             CString line = u"preset";
             for (const char16_t* expected : {u"one", u"", u"two", u"last"})
             {
                 EXPECT_TRUE(archive.ReadString(line));
                 EXPECT_EQ(line, CString(expected));
             }
             EXPECT_FALSE(archive.ReadString(line));
             EXPECT_EQ(line, CString(u"last"));
         });
    Load(bytes,
         [](CArchive& archive)
         {
             char16_t buffer[5];
             for (const char16_t* expected : {u"one\r", u"\n", u"\n", u"two\n", u"last"})
                 EXPECT_EQ(CString(archive.ReadString(buffer, 4)), CString(expected));
             EXPECT_EQ(archive.ReadString(buffer, 4), nullptr);
         });
}

TEST_F(ArchiveTest, BlocksLargerThanTheBufferKeepTheirOrder)
{
    const std::string block(1000, 'x');
    const std::string bytes = Store(
        [&](CArchive& archive)
        {
            archive << BYTE{'a'};
            archive.Write(block.data(), 1000);
            archive << BYTE{'b'};
        });

    EXPECT_EQ(bytes, "a" + block + "b");
    Load(bytes,
         [&](CArchive& archive)
         {
             std::string read(2000, ' ');
             EXPECT_EQ(archive.Read(read.data(), 2000), 1002u);
             EXPECT_EQ(read.substr(0, 1002), bytes);
         });
}

TEST_F(ArchiveTest, MisuseAndACutFileRaiseTheirCause)
{
    int value = 0;
    Load("abc",
         [&](CArchive& archive)
         {
             EXPECT_EQ(CauseOf([&] { archive << 1; }), CArchiveException::readOnly);
             EXPECT_EQ(CauseOf([&] { archive >> value; }), CArchiveException::endOfFile);
         });
    Store([&](CArchive& archive)
          { EXPECT_EQ(CauseOf([&] { archive >> value; }), CArchiveException::writeOnly); });
    Load("abcd",
         [&](CArchive& archive)
         {
             archive.Close();
             EXPECT_EQ(CauseOf([&] { archive >> value; }), CArchiveException::genericException);
         });
    EXPECT_EQ(value, 0);
}

TEST_F(ArchiveTest, ALoadingArchiveLeavesTheFileWhereItHasCome)
{
    CFile file(m_Folder.MakeFile(u"a.bin", "abcdef"), CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    WORD word = 0;
    archive >> word;

    archive.Close();

    EXPECT_EQ(file.GetPosition(), 2u);
}

} // namespace
} // namespace utility
