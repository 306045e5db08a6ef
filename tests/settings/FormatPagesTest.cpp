#include "settings/RegistryForms.h"
#include "settings/xml/XMLSettings.h"

#include "support/FormatPage.h"
#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

// The byte listings of docs/formats are what is written, and read back.

namespace utility
{

TEST(FormatPagesTest, TheRegistryFormOfItsPage)
{
    const CTemporaryFolder folder;
    CString file = folder.PathOf(u"forms.txt");
    CRegistryForms forms(file, true);
    CRegistryFormStruct form(u"Colours");
    form.AddKeyAndValue(u"Grid", u"12");
    forms.AddForm(&form);

    ASSERT_TRUE(forms.Export());
    EXPECT_EQ(folder.Read(u"forms.txt"), ReadByteListing("registry-form.md"));

    CRegistryForms back(folder.MakeFile(u"page.txt", ReadByteListing("registry-form.md")), true);
    ASSERT_TRUE(back.Import());
    CString value;
    EXPECT_TRUE(back.GetForm(0).GetValue(u"Grid", &value));
    EXPECT_EQ(value, u"12");
    EXPECT_EQ(back.GetForm(0).GetFormName(), u"{FORM}Colours");
}

TEST(FormatPagesTest, TheXmlSettingsOfTheirPage)
{
    const CTemporaryFolder folder;
    CXMLSettings settings;
    settings.SetEncodings(2);
    settings.SetValue(u"Layers", u"Count", 4);
    settings.SetValue(u"Layers", u"Name", u"Top & \u03A9");
    settings.SetAttributesString(u"Layers", u"unit=\"mm\"");
    settings.AddNewElement(u"", u"Grid");

    ASSERT_TRUE(settings.SaveXML(folder.PathOf(u"a.xml")));

    EXPECT_EQ(folder.Read(u"a.xml"), ReadByteListing("xml-settings.md"));
}

} // namespace utility
