#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"
#include "settings/xml/XMLSettings.h"

#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

using namespace utility;

namespace
{

struct CSet
{
    const char* m_Folder;
    const char* m_Package;
    const char* m_Ending;
};

std::string Written(CXMLSettings& settings)
{
    CString text;
    settings.WriteXMLtoString(text);
    return ToUtf8(text.View());
}

/// Thousands of files need no disk to have them for sure.
void SaveUnsynced(CXMLSettings& settings, const CString& path)
{
    CStdioFileEx file(path, CFile::modeWrite | CFile::modeCreate | CFile::typeText |
                                CStdioFileEx::modeReadUTF8);
    EXPECT_TRUE(settings.WriteXML(file, true));
    file.Close();
}

/// A ">" between the quotes of an attribute, by a plain walk over the bytes.
bool HasQuotedBracket(const std::string& bytes)
{
    bool inTag = false;
    char quote = 0;
    for (const char byte : bytes)
    {
        if (quote != 0)
        {
            if (byte == '>')
                return true;
            quote = byte == quote ? 0 : quote;
        }
        else if (inTag && (byte == '"' || byte == '\''))
            quote = byte;
        else
            inTag = byte == '<' || (inTag && byte != '>');
    }
    return false;
}

bool HasBranchWithText(CXMLSettings& settings)
{
    for (void* node = settings.FindElementHandle(CString()); node;)
    {
        void* next = settings.GetChildByHandle(node, 0);
        if (next && !settings.GetElementValueByHandle(node).IsEmpty())
            return true;
        while (node && !next)
        {
            next = settings.GetNextElementByHandle(node, false);
            node = settings.GetParentByHandle(node);
        }
        node = next;
    }
    return false;
}

class XMLRealFilesTest : public testing::TestWithParam<CSet>
{
};

TEST_P(XMLRealFilesTest, EveryFileLoadsSavesAndLoadsAgain)
{
    const std::filesystem::path folder = GetParam().m_Folder;
    ASSERT_TRUE(std::filesystem::exists(folder))
        << "install " << GetParam().m_Package << ": dev/packages.sh test";
    const CTemporaryFolder work;
    std::map<std::string, int> counts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    {
        if (!entry.is_regular_file() || entry.path().extension() != GetParam().m_Ending)
            continue;
        SCOPED_TRACE(entry.path().string());
        ++counts["files"];
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        CXMLSettings first;
        first.SetEncodings(2);
        ASSERT_TRUE(first.LoadXML(work.MakeFile(u"a.xml", bytes)));
        const std::string tree = Written(first);
        SaveUnsynced(first, work.PathOf(u"b.xml"));
        CXMLSettings second;
        second.SetEncodings(2);
        ASSERT_TRUE(second.LoadXML(work.PathOf(u"b.xml")));

        const bool hasBracket = HasQuotedBracket(bytes);
        const bool hasDocumentType = bytes.find("<!DOCTYPE") != std::string::npos;
        const bool hasText = HasBranchWithText(first);
        counts["with > in quotes"] += hasBracket;
        counts["with a document type"] += hasDocumentType;
        counts["with text beside children"] += hasText;
        counts["with a parse error"] += first.HasParseError();
        if (!hasBracket && !hasDocumentType)
        {
            EXPECT_FALSE(first.HasParseError());
        }
        // A line end that a reference stands for, and an "&#" of the text's own, do not come back.
        const bool hasReference =
            bytes.find("&#") != std::string::npos || bytes.find("&amp;#") != std::string::npos;
        counts["with typed references"] += hasReference;
        const bool hasReturn = tree.find('\r') != std::string::npos; // with no line feed behind it
        counts["with single carriage returns"] += hasReturn;
        if (!hasText && !hasReference && !hasReturn && !first.HasParseError())
        {
            EXPECT_TRUE(Written(second) == tree);
        }
    }
    for (const auto& [cause, count] : counts)
        std::cout << GetParam().m_Ending << " " << cause << ": " << count << '\n';
    EXPECT_GT(counts["files"], 100);
}

INSTANTIATE_TEST_SUITE_P(
    Packages, XMLRealFilesTest,
    testing::Values(CSet{"/usr/share/fritzing/parts", "fritzing-parts", ".fzp"},
                    CSet{"/usr/share/qelectrotech", "qelectrotech-data", ".elmt"}),
    [](const auto& package) { return std::string(package.param.m_Ending + 1); });

} // namespace
