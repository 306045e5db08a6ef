#include "settings/RegistryForms.h"

#include "platform/base/object/Exception.h"
#include "platform/base/object/InvalidArgException.h"
#include "settings/Registry.h"

#include "support/PrintText.h"
#include "support/StoreFolder.h"
#include "support/SystemCallFault.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

using namespace utility;

namespace
{

constexpr char16_t KEY[] = u"Software\\Test Makers\\Forms";

class RegistryFormsTest : public testing::Test
{
protected:
    static void AddForm(CRegistryForms& forms, const char16_t* name, const CString& value)
    {
        CRegistryFormStruct form(name);
        form.AddKeyAndValue(u"k", value);
        forms.AddForm(&form);
    }

    static CString ValueOf(CRegistryForms& forms, const char16_t* name)
    {
        CRegistryFormStruct* form = nullptr;
        CString value = u"(none)";
        if (forms.ReadForm(name, form))
            form->GetValue(u"k", &value);
        return value;
    }

    CStoreFolder m_Store;
    CTemporaryFolder m_Folder;
};

TEST_F(RegistryFormsTest, FormsGoThroughAKeyPastValuesThatAreNone)
{
    CRegistry key(KEY, HKEY_CURRENT_USER);
    CRegistryForms empty(KEY, false);
    EXPECT_FALSE(empty.Import());
    ASSERT_TRUE(key.SetValue(u"Other", u"no form"));
    CRegistryForms written(KEY, false);
    AddForm(written, u"A", u"1\n2");
    AddForm(written, u"{FORM}B", u"x|y:z");
    EXPECT_TRUE(written.Export());
    ASSERT_TRUE(key.SetValue(u"Last", 5));
    ASSERT_TRUE(key.SetValue(u"My {FORM}", u"k:3"));

    CRegistryForms read(KEY, false);
    EXPECT_TRUE(read.Import());

    EXPECT_EQ(read.GetCount(), 3);
    EXPECT_EQ(ValueOf(read, u"A"), u"1\n2");
    EXPECT_EQ(ValueOf(read, u"{FORM}B"), u"x|y:z");
    EXPECT_EQ(ValueOf(read, u"My {FORM}"), u"3") << "marked anywhere";
    EXPECT_EQ(ValueOf(read, u"a"), u"(none)") << "names count case";
}

TEST_F(RegistryFormsTest, ATextThatTheStoreCannotReadEndsTheImport)
{
    CRegistryForms written(KEY, false);
    AddForm(written, u"A", u"1");
    AddForm(written, u"B", CString(u'x', 1100));
    EXPECT_TRUE(written.Export());
    AddForm(written, u"C", CString(u'x', 2100));
    EXPECT_FALSE(written.Export()) << "not even stored";

    CRegistryForms read(KEY, false);
    EXPECT_TRUE(read.Import());

    EXPECT_EQ(ValueOf(read, u"A"), u"1");
    EXPECT_EQ(ValueOf(read, u"B"), u"(none)") << "nor another form's text";
}

TEST_F(RegistryFormsTest, AFileHoldsALineAForm)
{
    const CString path = m_Folder.PathOf(u"a.txt");
    CRegistryForms written(path, true);
    AddForm(written, u"A", u"1");
    AddForm(written, u"B", CString(u'x', 3000));
    EXPECT_TRUE(written.Export());

    EXPECT_EQ(m_Folder.Read(u"a.txt"), "{FORM}A|\"\"\"k\"\":\"\"1\"\":\"|\r\n"
                                       "{FORM}B|\"\"\"k\"\":\"\"" +
                                           std::string(3000, 'x') + "\"\":\"|\r\n");
    CRegistryForms read;
    CString name = path;
    EXPECT_TRUE(read.Import(name));
    EXPECT_EQ(read.GetCount(), 2);
    EXPECT_EQ(ValueOf(read, u"A"), u"1");
    EXPECT_EQ(ValueOf(read, u"B").GetLength(), 3000);
}

TEST_F(RegistryFormsTest, ExportGoesToTheNameHeldSoFar)
{
    CString first = m_Folder.PathOf(u"first.txt");
    CString second = m_Folder.PathOf(u"second.txt");
    CRegistryForms unnamed;
    AddForm(unnamed, u"A", u"1");
    EXPECT_FALSE(unnamed.Export(first)) << "no name is held";
    EXPECT_FALSE(unnamed.Export());

    CRegistryForms named(first, true);
    AddForm(named, u"A", u"1");
    EXPECT_TRUE(named.Export(second));
    EXPECT_EQ(m_Folder.List(), std::vector<std::string>{"first.txt"});
    EXPECT_TRUE(named.Export());
    EXPECT_EQ(m_Folder.Read(u"second.txt"), m_Folder.Read(u"first.txt"));
}

TEST_F(RegistryFormsTest, ALineThatIsNoFormRaisesAndTheFormsBeforeItStay)
{
    CString path = m_Folder.MakeFile(u"a.txt", "A|k:1\n\nB|k:2\n");
    CRegistryForms forms;
    bool raised = false;
    try
    {
        forms.Import(path);
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
        raised = true;
    }
    EXPECT_TRUE(raised);
    EXPECT_EQ(forms.GetCount(), 1);

    m_Folder.MakeFile(u"a.txt", "B|k:2");
    EXPECT_TRUE(forms.Import(path)) << "the file was closed";
    EXPECT_EQ(ValueOf(forms, u"B"), u"2");
    CString none = m_Folder.PathOf(u"none.txt");
    EXPECT_FALSE(CRegistryForms().Import(none));
}

TEST_F(RegistryFormsTest, RandomFormsComeBackThroughAKeyAndThroughAFile)
{
    std::mt19937 random(6);
    const auto text = [&random](std::u16string_view units)
    {
        std::u16string made;
        for (unsigned length = 1 + random() % 8; length > 0; --length)
            made += units[random() % units.size()];
        return CString(std::u16string_view(made));
    };
    for (const bool isFile : {false, true})
    {
        // A line end stands in a key, not in a line of a file; names hold no separator.
        const std::u16string_view units =
            isFile ? u"\"\"::||ab \t\u00E9\u2126{}" : u"\"\"::||ab \t\n\r\u00E9\u2126{}";
        const CString place = isFile ? m_Folder.PathOf(u"random.txt") : CString(KEY);
        CRegistryForms written(place, isFile);
        std::vector<CRegistryFormStruct> forms;
        for (int number = 0; number < 100; ++number)
        {
            CRegistryFormStruct form(text(u"\":ab \u00E9{}") + CString(u'0', number));
            for (unsigned pairs = random() % 6; pairs > 0; --pairs)
                form.AddKeyAndValue(text(units), text(units));
            written.AddForm(&form);
            forms.push_back(form);
        }
        ASSERT_TRUE(written.Export());

        CRegistryForms read(place, isFile);
        ASSERT_TRUE(read.Import());
        EXPECT_EQ(read.GetCount(), 100);
        for (const CRegistryFormStruct& form : forms)
        {
            CRegistryFormStruct* back = nullptr;
            ASSERT_TRUE(read.ReadForm(form.GetFormName(), back));
            EXPECT_EQ(back->GetFullString(), form.GetFullString());
        }
    }
}

TEST_F(RegistryFormsTest, AFormOfTheKeyThatCannotBeReadIsNotAmongTheForms)
{
    CRegistry key(KEY, HKEY_CURRENT_USER);
    ASSERT_TRUE(key.SetValue(u"{FORM}A", u"k:1"));
    ASSERT_TRUE(key.SetValue(u"{FORM}B", u"k:"));
    CRegistryForms forms(KEY, false);
    bool raised = false;
    try
    {
        forms.Import();
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
        raised = true;
    }
    EXPECT_TRUE(raised);
    EXPECT_EQ(forms.GetCount(), 1);
}

TEST_F(RegistryFormsTest, EachFailingCallOfAnExportLeavesTheOldOrTheNewFile)
{
    int call = 1;
    for (;; ++call)
    {
        SCOPED_TRACE(testing::Message() << "file call " << call);
        const CTemporaryFolder folder;
        CRegistryForms forms(folder.MakeFile(u"a.txt", "old"), true);
        AddForm(forms, u"A", CString(u'n', 70000));

        const CFaultedRun run =
            RunWithFault(call, ESystemCallFault::Fails, [&] { return forms.Export() ? 0 : 1; });

        EXPECT_GE(run.Result, 0) << "the program goes on";
        EXPECT_EQ(folder.Read(u"a.txt").size(), run.Result == 0 ? 70024U : 3U);
        EXPECT_EQ(folder.List(), std::vector<std::string>{"a.txt"});
        if (!run.WasMet)
            break;
    }
    EXPECT_GT(call, 12) << "the road has more calls than these";
}

} // namespace
