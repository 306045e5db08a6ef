#include "platform/base/PathText.h"

#include <gtest/gtest.h>

#include <string>

using namespace utility;

namespace
{

std::u16string Text(const CString& text)
{
    return std::u16string(text.View());
}

} // namespace

TEST(PathTextTest, CutsAndJoinsWithoutLoss)
{
    const struct
    {
        std::u16string m_Path;
        std::u16string m_Parts[4];
    } rows[] = {
        {u"C:\\dir\\name.ext", {u"C:", u"\\dir\\", u"name", u".ext"}},
        {u"a/b.c/d", {u"", u"a/b.c/", u"d", u""}},
        {u"C:name", {u"C:", u"", u"name", u""}},
        {u".config", {u"", u"", u"", u".config"}},
        {u"x.tar.gz", {u"", u"", u"x.tar", u".gz"}},
        {u"name.", {u"", u"", u"name", u"."}},
        {u"..", {u"", u"", u".", u"."}},
        {u"\\\\srv\\lib\\", {u"", u"\\\\srv\\lib\\", u"", u""}},
        {u"a\\b/c", {u"", u"a\\b/", u"c", u""}},
        {u"/", {u"", u"/", u"", u""}},
        {u"C:", {u"C:", u"", u"", u""}},
        {u":", {u"", u"", u":", u""}},
        {u"", {u"", u"", u"", u""}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.m_Path));
        const CPathParts parts = _wsplitpath(row.m_Path);
        EXPECT_EQ(Text(parts.m_Drive), row.m_Parts[0]);
        EXPECT_EQ(Text(parts.m_Directory), row.m_Parts[1]);
        EXPECT_EQ(Text(parts.m_FileName), row.m_Parts[2]);
        EXPECT_EQ(Text(parts.m_Extension), row.m_Parts[3]);
        EXPECT_EQ(Text(_wmakepath(parts)), row.m_Path);
    }
}

TEST(PathTextTest, JoiningPutsInWhatIsMissing)
{
    const struct
    {
        CPathParts m_Parts;
        std::u16string m_Path;
    } rows[] = {
        {{u"D", u"", u"", u""}, u"D:"},
        {{u"DX:", u"\\", u"", u""}, u"D:\\"},
        {{u"", u"dir", u"name", u"ext"}, u"dir\\name.ext"},
        {{u"", u"dir/", u"name", u".ext"}, u"dir/name.ext"},
        {{u"", u"", u"", u"ext"}, u".ext"},
        {{}, u""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.m_Path));
        EXPECT_EQ(Text(_wmakepath(row.m_Parts)), row.m_Path);
    }
}

TEST(PathTextTest, LongPartsAreCutAndTold)
{
    const std::u16string longText(300, u'a');
    bool wasCut = false;

    CPathParts parts =
        _wsplitpath(longText.substr(0, 254) + u"/" + longText.substr(0, 255), &wasCut);
    EXPECT_FALSE(wasCut);
    EXPECT_EQ(parts.m_Directory.GetLength(), DIRECTORY_LIMIT);
    EXPECT_EQ(parts.m_FileName.GetLength(), FILE_NAME_LIMIT);
    EXPECT_EQ(_wmakepath(parts, &wasCut).GetLength(), PATH_LIMIT);
    EXPECT_TRUE(wasCut);

    for (const std::u16string& path : {longText + u"/", longText, u"." + longText})
    {
        wasCut = false;
        parts = _wsplitpath(path, &wasCut);
        EXPECT_TRUE(wasCut);
        EXPECT_EQ(_wmakepath(parts).GetLength() - (path.back() == u'/'), 255);
    }
}
