#include "files/encoded/StdioFileEx.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace utility;

namespace
{

/// What the fuzz target is fed is read in each mode: reading ends, makes no more units than bytes,
/// and does so twice.
TEST(EncodedTextCorpusTest, EachFileReadsToItsEnd)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(UTILITY_FUZZ_DATA "/EncodedText"))
    {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream source(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(source)), {});
        const CTemporaryFolder folder;
        const CString path =
            folder.MakeFile(u"a", std::string_view(bytes).substr(bytes.empty() ? 0 : 1));
        for (const UINT flags : {0U, CStdioFileEx::modeReadUTF8, CStdioFileEx::modeWriteUnicode,
                                 CStdioFileEx::modeRtf})
        {
            CStdioFileEx file(path, flags);
            std::size_t units = 0;
            CString line;
            while (file.ReadString(line))
                units += line.View().size();
            EXPECT_LE(units, bytes.size());
            EXPECT_EQ(file.GetPosition(), file.GetLength());
            EXPECT_FALSE(file.ReadString(line)) << "the end stays the end";
        }
        ++count;
    }
    EXPECT_GE(count, 8);
}

} // namespace
