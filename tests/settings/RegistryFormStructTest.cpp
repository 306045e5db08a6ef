#include "settings/RegistryFormStruct.h"

#include "platform/base/object/Exception.h"
#include "platform/base/object/InvalidArgException.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace utility;

namespace
{

/// All pairs in one text.
CString Pairs(const CRegistryFormStruct& form)
{
    CString all;
    CString key;
    CString value;
    for (int index = 0; form.GetKeyAndValue(index, &key, &value); ++index)
        all.AppendFormat(u"[%s=%s]", key, value);
    return all;
}

bool RaisesBounds(const std::function<void()>& call)
{
    try
    {
        call();
        return false;
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
        return true;
    }
}

TEST(RegistryFormStructTest, NamesBeginWithTheMark)
{
    EXPECT_EQ(CRegistryFormStruct().GetFormName(), u"{FORM}UnstatedName");
    EXPECT_EQ(CRegistryFormStruct(u"Colours").GetFormName(), u"{FORM}Colours");
    EXPECT_EQ(CRegistryFormStruct(u"{FORM}Colours").GetFormName(), u"{FORM}Colours");
    EXPECT_EQ(CRegistryFormStruct(u"{form}x").GetFormName(), u"{FORM}{form}x");
    CRegistryFormStruct form;
    form.SetFormName(u"");
    EXPECT_EQ(form.GetFormName(), u"{FORM}");
    EXPECT_EQ(form.GetFullString(), u"{FORM}|");
}

// The example of docs/formats/registry-form.md.
TEST(RegistryFormStructTest, PacksPairsInQuotes)
{
    CRegistryFormStruct form(u"Colours");
    EXPECT_EQ(form.GetFullString(), u"{FORM}Colours|");
    form.AddKeyAndValue(u"Grid", u"12");
    form.AddKeyAndValue(u"a|b", u"\"c:d\"");

    EXPECT_EQ(form.GetFormString(),
              u"\"\"\"Grid\"\":\"\"12\"\":\"|\"\"\"a|b\"\":\"\"\"\"\"\"c:d\"\"\"\"\"\":\"|");
    EXPECT_EQ(form.GetFullString(), u"{FORM}Colours|" + form.GetFormString());
}

TEST(RegistryFormStructTest, ReadsWhatOthersWrite)
{
    struct
    {
        const char16_t* m_Text;
        const char16_t* m_Pairs;
    } const rows[] = {
        {u"", u""},
        {u"a:1|b:2", u"[a=1][b=2]"},
        {u"a:1|b:2|", u"[a=1][b=2]"},
        {u" a : 1 ", u"[a=1]"},
        {u"\"\"\" a \"\":\"\" \"\":\"|", u"[ a = ]"},
        {u"k:v:w", u"[k=v]"},
        {u"k::v", u"[k=v]"},
        {u"a:1|a:2", u"[a=1][a=2]"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CRegistryFormStruct form(u"x");
        form.SetFormString(row.m_Text);
        EXPECT_EQ(Pairs(form), row.m_Pairs);
        EXPECT_EQ(form.GetFullString(), CString(u"{FORM}x|") + row.m_Text);
        CRegistryFormStruct full(u"y");
        full.SetFullString(CString(u"x|") + row.m_Text);
        EXPECT_EQ(full.GetFormName(), u"{FORM}x");
        EXPECT_EQ(Pairs(full), row.m_Pairs);
    }
}

TEST(RegistryFormStructTest, APairOfOneTextRaisesTheBoundsException)
{
    CRegistryFormStruct form(u"x");
    for (const char16_t* text : {u"a", u"a:", u":1", u"a:1||b:2", u"a:1|b", u":"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        EXPECT_TRUE(RaisesBounds([&] { form.SetFormString(text); }));
    }
    EXPECT_EQ(Pairs(form), u"");
    EXPECT_TRUE(RaisesBounds([&] { form.SetFullString(u""); }));
    form.AddKeyAndValue(u"empty", u"");
    const CString written = form.GetFormString();
    EXPECT_TRUE(RaisesBounds([&] { form.SetFormString(written); })) << "no empty value";

    form.SetFormString(u"a:1");
    form.SetValue(u"a", u"2");
    EXPECT_EQ(form.GetFormString(), u"\"\"\"a\"\":\"\"2\"\":\"|") << "changes are told again";
}

TEST(RegistryFormStructTest, PairsAreReachedByIndexKeyAndWalking)
{
    CStringArray keys;
    CStringArray values;
    for (const char16_t* text : {u"a", u"b", u"B"})
    {
        keys.Add(text);
        values.Add(CString(text) + u"1");
    }
    CRegistryFormStruct form(u"x", keys, values);
    CString key;
    CString value;

    EXPECT_TRUE(form.GetValue(u"B", &value) && value == u"B1") << "keys count case";
    EXPECT_TRUE(form.SetValue(u"a", u"9") && form.SetKey(1, u"k"));
    EXPECT_TRUE(form.SetKeyAndValue(2, u"a", u"8"));
    EXPECT_EQ(Pairs(form), u"[a=9][k=b1][a=8]");
    EXPECT_TRUE(form.GetValue(u"a", &value) && value == u"9") << "the first of equal keys";
    EXPECT_FALSE(form.SetValue(u"b", u"1"));
    for (const int index : {-1, 3})
    {
        EXPECT_FALSE(form.GetKey(index, &key) || form.GetValue(index, &value));
        EXPECT_FALSE(form.SetKey(index, u"") || form.SetValue(index, u""));
    }

    CString walked;
    for (bool more = form.GetFirstKeyValuePair(&key, &value); more;
         more = form.GetNextKeyValuePair(&key, &value))
        walked += key + value;
    EXPECT_EQ(walked, u"a9kb1a8");
    EXPECT_FALSE(form.GetNextKeyValuePair(&key, &value));
    form.AddKeyAndValue(u"new", u"7");
    EXPECT_FALSE(form.GetNextKeyValuePair(&key, &value)) << "the walk stays at its end";
}

TEST(RegistryFormStructTest, AnyPairsWithoutEmptyTextsComeBack)
{
    std::mt19937 random(24);
    const auto text = [&]
    {
        constexpr std::u16string_view UNITS = u"\"\":|ab \t\n\u00E9{}";
        std::u16string made;
        for (unsigned length = 1 + random() % 6; length > 0; --length)
            made += UNITS[random() % UNITS.size()];
        return CString(std::u16string_view(made));
    };
    for (int round = 0; round < 2000; ++round)
    {
        CRegistryFormStruct form(u"x");
        for (unsigned count = random() % 5; count > 0; --count)
            form.AddKeyAndValue(text(), text());

        CRegistryFormStruct back;
        back.SetFullString(form.GetFullString());

        EXPECT_EQ(Pairs(back), Pairs(form));
        EXPECT_EQ(back.GetFullString(), form.GetFullString());
    }
}

TEST(RegistryFormStructTest, ManyPairsAreAddedAndChangedOneByOneInNoTime)
{
    constexpr int COUNT = 100000; // making the text at each change would take hours
    CRegistryFormStruct form(u"x");
    for (int index = 0; index < COUNT; ++index)
        form.AddKeyAndValue(u"key", u"value");
    for (int index = 0; index < COUNT; ++index)
        form.SetValue(index, u"v");

    EXPECT_EQ(form.GetFormString().GetLength(), COUNT * 17);
}

} // namespace
