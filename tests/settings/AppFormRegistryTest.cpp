#include "settings/AppFormRegistry.h"

#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

class AppFormRegistryTest : public testing::Test
{
protected:
    /// What reading from the first line on gives, a word a line: type, name, value.
    CString ReadAll()
    {
        m_Forms.InitLineNumber(0);
        CString all;
        EFormType type = EFormType::Value;
        CString name;
        CString value;
        while (m_Forms.GetFormNext(type, name, value))
            all.AppendFormat(u"%d[%s][%s] ", static_cast<int>(type), name, value);
        EXPECT_TRUE(name.IsEmpty() && value.IsEmpty());
        return all.TrimRight();
    }

    CSettingsSandbox m_Sandbox;
    CStoreFolder m_Store;
    CAppFormRegistry m_Forms{u"Outline"};
};

TEST_F(AppFormRegistryTest, WritesALineAValueAndReadsItBack)
{
    m_Forms.OpenForm(u"Window");
    m_Forms.WriteForm(u"Width", 640);
    m_Forms.WriteForm(u"Scale", 0.1234567);
    m_Forms.WriteForm(u"Title", u"a=b (c)");
    m_Forms.WriteString(u"Docked");
    m_Forms.WriteForm(u"", u"no name");
    m_Forms.CloseForm();

    const CAppRegistry key(u"Outline");
    CString text;
    EXPECT_TRUE(key.GetValue(u"00000", text));
    EXPECT_EQ(text, u"(Window");
    EXPECT_TRUE(key.GetValue(u"00006", text));
    EXPECT_EQ(text, u")");
    EXPECT_FALSE(key.GetValue(u"00007", text));
    EXPECT_EQ(ReadAll(), u"0[Window][] 2[Width][640] 2[Scale][0.123457] 2[Title][a=b (c)] "
                         u"2[Docked][] 2[][no name] 1[][]");
}

TEST_F(AppFormRegistryTest, AShorterOutlineKeepsTheEndOfTheLongerUnlessTheKeyIsDeleted)
{
    const auto write = [&](int lines)
    {
        m_Forms.InitLineNumber(0);
        for (int line = 0; line < lines; ++line)
            m_Forms.WriteForm(u"n", lines);
    };
    write(3);
    write(1);
    EXPECT_EQ(ReadAll(), u"2[n][1] 2[n][3] 2[n][3]");

    EXPECT_TRUE(CAppRegistry(u"Outline").DeleteKey());
    write(1);
    EXPECT_EQ(ReadAll(), u"2[n][1]");
}

TEST_F(AppFormRegistryTest, NamesOfLinesGrowPastFiveDigits)
{
    CString name;
    m_Forms.InitLineNumber(99999);
    m_Forms.NextRegLine(name);
    EXPECT_EQ(name, u"99999");
    EXPECT_TRUE(m_Forms.WriteString(u"x"));
    EXPECT_TRUE(CAppRegistry(u"Outline").GetValue(u"100000", name));
    EXPECT_FALSE(m_Forms.WriteString(CString(u'x', 2048))) << "the store takes no such text";
}

} // namespace
