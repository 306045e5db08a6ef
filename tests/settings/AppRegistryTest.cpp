#include "settings/AppRegistry.h"

#include "frame/Application.h"
#include "platform/system/window/WinApp.h"

#include "support/SettingsSandbox.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

class AppRegistryTest : public testing::Test
{
protected:
    AppRegistryTest()
        : m_Makers(u"Software\\" + CApplication::GetCompanyName(true)),
          m_Application(m_Makers + u"\\" + CApplication::GetRegistryName())
    {
    }

    CSettingsSandbox m_Sandbox;
    CStoreFolder m_Store;
    CString m_Makers;
    CString m_Application;
};

} // namespace

TEST_F(AppRegistryTest, KeysStandBelowTheApplications)
{
    EXPECT_EQ(CAppRegistry().GetKey(), m_Application);
    EXPECT_EQ(CAppRegistry(u"View").GetKey(), m_Application + u"\\View");
    EXPECT_EQ(CAppRegistry(u"\\View").GetKey(), m_Application + u"\\View");
    CAppRegistry key(u"View");
    key.SetKey(u"Other");
    EXPECT_EQ(key.GetKey(), m_Application + u"\\Other");
    EXPECT_EQ(CAppRegistry(key).GetKey(), m_Application + u"\\Other");
}

TEST_F(AppRegistryTest, AVersionFollowsTheProductAsItIsGiven)
{
    CApplication::SetProductName(u"Product");
    CAppRegistry key;
    key.SetVersion(u"7");
    EXPECT_EQ(key.GetKey(), m_Makers + u"\\Product7");
    key.SetVersion(u"\\7");
    EXPECT_EQ(key.GetKey(), m_Makers + u"\\Product\\7");
}

TEST_F(AppRegistryTest, AnotherRootKeepsItsValuesApart)
{
    CAppRegistry user;
    CAppRegistry machine(u"", HKEY_LOCAL_MACHINE);
    ASSERT_TRUE(user.SetValue(u"v", 1));
    ASSERT_TRUE(machine.SetValue(u"v", 2));
    int value = 0;
    EXPECT_TRUE(user.GetValue(u"v", value));
    EXPECT_EQ(value, 1);
}

TEST_F(AppRegistryTest, AskingForAKeyDropsTheTail)
{
    ASSERT_TRUE(CAppRegistry(u"View\\Top").SetValue(u"v", 1));
    CAppRegistry key(u"View");
    EXPECT_TRUE(key.DoesKeyExist(u"View\\Top"));
    EXPECT_EQ(key.GetKey(), m_Application);
    EXPECT_FALSE(key.DoesKeyExist(u"Top"));
}

TEST_F(AppRegistryTest, DeletingAllTakesTheModulesOwnKey)
{
    const CString name = AfxGetAppName();
    ASSERT_FALSE(name.IsEmpty());
    ASSERT_TRUE(CAppRegistry(name + u"\\Below").SetValue(u"v", 1));
    ASSERT_TRUE(CAppRegistry(u"Other").SetValue(u"v", 1));

    EXPECT_TRUE(CAppRegistry(u"Other").DeleteAll());

    EXPECT_FALSE(CAppRegistry(name).KeyExists());
    EXPECT_TRUE(CAppRegistry(u"Other").KeyExists());
}

} // namespace utility
