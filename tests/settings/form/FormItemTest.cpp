#include "settings/form/FormItem.h"

#include "platform/base/Encoding.h"
#include "settings/form/FormExportWriter.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

using namespace utility;

namespace
{

class FormItemTest : public testing::Test
{
protected:
    CFormItem& OpenRoot(std::string_view text)
    {
        EXPECT_TRUE(m_Reader.Open(m_Folder.MakeFile(u"in.frm", text)));
        m_Root = std::make_unique<CFormItem>(&m_Reader);
        return *m_Root;
    }

    // The names of all forms below, children in brackets behind their parent.
    static std::string Names(CFormItem& item)
    {
        std::string names;
        while (CFormItem* child = item.OpenNext())
        {
            names += ToUtf8(child->Name().View()) + "{" + Names(*child) + "}";
            child->End();
        }
        return names;
    }

    CTemporaryFolder m_Folder;
    CFormImportReader m_Reader;
    std::unique_ptr<CFormItem> m_Root;
};

TEST_F(FormItemTest, WalksChildrenAndSkipsWhatIsLeftUnread)
{
    EXPECT_EQ(Names(OpenRoot("(a 1 (b (c x)) y (d)) (e (f (g))))")), "a{b{c{}}d{}}e{f{g{}}}");

    CFormItem& root = OpenRoot("(a (b (c (d 1)) (e 2)) (f 3)) (g 4)");
    CFormItem* a = root.OpenNext();
    CFormItem* b = a->OpenNext();
    CFormItem* c = b->OpenNext();
    ASSERT_TRUE(*c == u"C");
    b->End(); // c is still open: nesting is mended by levels
    CFormItem* f = a->OpenNext();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->Name(), u"f");
    f->End();
    a->End();
    CFormItem* g = root.OpenNext();
    ASSERT_NE(g, nullptr);
    EXPECT_EQ(g->Name(), u"g");
    g->End();
    EXPECT_EQ(root.OpenNext(), nullptr);
    delete c;
}

TEST_F(FormItemTest, OpensAChildByNameOrTellsThereIsNone)
{
    CFormItem& root = OpenRoot("(a (x 1) (y 2)) (b 3)");
    CFormItem* a = root.OpenNext();
    CFormItem* y = a->Open(u"Y");
    ASSERT_NE(y, nullptr);
    int value = 0;
    EXPECT_TRUE(y->Read(value));
    EXPECT_EQ(value, 2);
    y->End();
    EXPECT_EQ(a->Open(u"z"), nullptr) << "the enclosing form has ended";
    a->End();
    CFormItem* b = root.OpenNext();
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->Name(), u"b");
    b->End();
}

TEST_F(FormItemTest, ReadsTruthAndTextsOfManyLines)
{
    CFormItem& root = OpenRoot("(a 0 2 \"one\\r\\ntwo \\( \\x \\\\n end\\\\\" )");
    CFormItem* a = root.OpenNext();
    bool truth = true;
    EXPECT_TRUE(a->ReadBool(truth));
    EXPECT_FALSE(truth);
    EXPECT_TRUE(a->ReadBool(truth));
    EXPECT_TRUE(truth);
    CString text;
    EXPECT_TRUE(a->ReadMultiLine(text));
    EXPECT_EQ(text, u"one\r\ntwo ( \\x \n end\\")
        << "a protected backslash before n is lost, as laid down";
    EXPECT_FALSE(a->ReadBool(truth));
    EXPECT_FALSE(truth);
    a->End();
}

TEST_F(FormItemTest, ReadsTheFirstBinaryBlockAmongOthers)
{
    CFormItem& root = OpenRoot("(a (other (size 9)) (BINARY (size 4) (data 0a FF 7 zG 11)) (binary "
                               "(size 1) (data 22))) (b)");
    CFormItem* a = root.OpenNext();
    unsigned char* data = nullptr;
    unsigned size = 0;
    ASSERT_TRUE(a->ReadBinary(data, size));
    ASSERT_EQ(size, 4u);
    EXPECT_EQ(data[0], 0x0A);
    EXPECT_EQ(data[1], 0xFF);
    EXPECT_EQ(data[2], 0) << "one digit is no byte";
    EXPECT_EQ(data[3], 0);
    std::free(data);
    a->End();
    CFormItem* b = root.OpenNext();
    ASSERT_NE(b, nullptr);
    b->End();
}

// Writer and reader are inverse wherever the format holds what was written.
TEST_F(FormItemTest, WhatIsWrittenComesBack)
{
    std::mt19937 random(20240917);
    const std::vector<CString> pieces = {u"a",  u"Z",  u"9", u" ",  u"(", u")", u"\"", u"\\", u"\r",
                                         u"\n", u"\t", u"é", u"中", u"😀", u"n", u"r",  u".",  u"-"};
    const auto draw = [&](int limit)
    {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    struct CRow
    {
        CString text;
        int whole;
        unsigned wide;
        std::int64_t big;
        double real;
        std::vector<BYTE> bytes;
    };
    std::vector<CRow> rows(2000);
    for (CRow& row : rows)
    {
        for (int count = draw(12); count > 0; --count)
            row.text += pieces[static_cast<std::size_t>(draw(static_cast<int>(pieces.size())))];
        row.whole = static_cast<int>(random());
        row.wide = random();
        row.big = static_cast<std::int64_t>(std::uint64_t{random()} << 32 | random());
        row.real = std::ldexp(static_cast<double>(row.whole), draw(200) - 100);
        row.bytes.resize(static_cast<std::size_t>(draw(90)));
        for (BYTE& byte : row.bytes)
            byte = static_cast<BYTE>(random());
    }

    const CString path = m_Folder.PathOf(u"rows.frm");
    CFormExportWriter writer;
    ASSERT_TRUE(writer.Open(path));
    writer.StartChecksum();
    for (const CRow& row : rows)
    {
        writer.OpenForm(u"row", true);
        writer.FormQuoted(u"text", row.text, true);
        writer.Form(u"whole", row.whole, true);
        writer.Form(u"wide", row.wide, true);
        writer.Form(u"big", row.big, true);
        writer.Form(u"real", row.real, true);
        writer.Form(row.bytes.data(), static_cast<unsigned>(row.bytes.size()), true);
        writer.CloseForm(true);
    }
    writer.Close();

    CFormImportReader reader;
    ASSERT_TRUE(reader.Open(path));
    reader.StartChecksum();
    CFormItem root(&reader);
    const auto child = [](CFormItem* item, const char16_t* name)
    {
        CFormItem* found = item->OpenNext();
        EXPECT_TRUE(found && *found == name);
        return found;
    };
    for (const CRow& row : rows)
    {
        CFormItem* item = root.OpenNext();
        ASSERT_NE(item, nullptr);

        const bool lineEnds =
            row.text.FindOneOf(u"\r\n") >= 0 || row.text == u"(" || row.text == u")";
        CFormItem* text = child(item, u"text");
        CString got;
        EXPECT_TRUE(lineEnds ? text->ReadMultiLine(got) : text->Read(got));
        bool ambiguous =
            false; // a backslash before what an escape stands for, or before its letter
        for (const char16_t* pair : {u"\\n", u"\\r", u"\\(", u"\\)", u"\\\n", u"\\\r"})
            ambiguous |= lineEnds && row.text.Find(pair) >= 0;
        if (!ambiguous)
        {
            EXPECT_EQ(got, row.text);
        }
        text->End();

        int whole = 0;
        unsigned wide = 0;
        std::int64_t big = 0;
        double real = 0;
        CFormItem* number = child(item, u"whole");
        EXPECT_TRUE(number->Read(whole));
        number->End();
        number = child(item, u"wide");
        EXPECT_TRUE(number->Read(wide));
        number->End();
        number = child(item, u"big");
        EXPECT_TRUE(number->Read(big));
        number->End();
        number = child(item, u"real");
        EXPECT_TRUE(number->Read(real));
        number->End();
        EXPECT_EQ(whole, row.whole);
        EXPECT_EQ(wide, row.wide);
        EXPECT_EQ(big, row.big);
        EXPECT_NEAR(real, row.real, std::abs(row.real) * 1e-11);

        unsigned char* data = nullptr;
        unsigned size = 0;
        EXPECT_TRUE(item->ReadBinary(data, size));
        ASSERT_EQ(size, row.bytes.size());
        EXPECT_TRUE(std::equal(row.bytes.begin(), row.bytes.end(), data));
        std::free(data);
        item->End();
    }
    EXPECT_EQ(root.OpenNext(), nullptr);
    EXPECT_EQ(reader.GetChecksum(), writer.GetChecksum());
}

} // namespace
