#include "frame/Application.h"
#include "platform/base/collections/ByteArray.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace utility
{

namespace
{

/// The indented block of the page that begins with a line, as a file.
std::string ExampleIn(const char* page, const std::string& firstLine)
{
    const auto path = std::filesystem::path(UTILITY_TEST_DATA) / "../../docs/formats" / page;
    std::ifstream file(path.lexically_normal());
    std::string example;
    std::string line;
    const std::string indent(4, ' ');
    while (std::getline(file, line) && line != indent + firstLine)
    {
    }
    for (; line.starts_with(indent); line.clear(), std::getline(file, line))
        example += line.substr(indent.size()) + "\r\n";
    return example;
}

} // namespace

TEST(ConfigurationDocsTest, TheExampleIsWhatIsWrittenAndReadsBack)
{
    const CSettingsSandbox sandbox;
    const CStoreFolder store;
    const CTemporaryFolder folder;
    CApplication::SetRegistryName(u"Tool");
    CRegistry key(CAppRegistry().GetKey(), HKEY_CURRENT_USER);
    CByteArray bytes;
    bytes.Add(0);
    bytes.Add(7);
    ASSERT_TRUE(key.SetValue(u"Text", u"abcd"));
    ASSERT_TRUE(key.SetValue(u"Number", -5));
    ASSERT_TRUE(CAppRegistry(u"Child").SetValue(u"[x]", bytes));

    ASSERT_TRUE(key.SaveToFile(folder.PathOf(u"a.cfg"), CString(), nullptr));

    EXPECT_EQ(folder.Read(u"a.cfg"), ExampleIn("configuration-file.md", "[Tool]"));
    ASSERT_TRUE(key.DeleteAllValues());
    EXPECT_TRUE(key.LoadFromFile(folder.PathOf(u"a.cfg"), CString()));
    int number = 0;
    EXPECT_TRUE(key.GetValue(u"Number", number));
    EXPECT_EQ(number, -5);
}

} // namespace utility
