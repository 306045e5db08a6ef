#include "files/zip/ZipNames.h"

#include "files/zip/ZipFixture.h"
#include "platform/base/Encoding.h"

namespace utility
{

TEST(ZipNamesTest, CleanedNamesStayBelowAnyFolder)
{
    const struct
    {
        std::u16string_view m_Name;
        std::u16string_view m_Cleaned;
    } cases[] = {
        {u"a/b.txt", u"a/b.txt"},
        {u"../x", u"x"},
        {u"..\\..\\x", u"x"},
        {u"a/../../b", u"b"},
        {u"a/../c/..\\b/d", u"b/d"},
        {u"x/../C:\\b", u"b"},
        {u"a/..", u""},
        {u"..", u""},
        {u"a..b", u"a..b"},
        {u"a/..b/...", u"a/..b/..."},
        {u"C:\\Windows\\x", u"Windows\\x"},
        {u"/etc/passwd", u"etc/passwd"},
        {u"\\\\server\\share", u"server\\share"},
        {u"C:..\\x", u"x"},
        {u"C:D:/x", u"x"},
        {u"/C:/../../x/", u"x/"},
        {u"C:", u""},
        {u"", u""},
        {u"./a", u"./a"},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(ToUtf8(each.m_Name));
        EXPECT_EQ(CleanZipName(each.m_Name), each.m_Cleaned);
        EXPECT_EQ(CleanZipName(each.m_Cleaned), each.m_Cleaned);
    }
}

} // namespace utility
