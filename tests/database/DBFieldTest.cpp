#include "database/DBField.h"

#include "database/FieldTools.h"
#include "database/ODBCRecordset.h"
#include "platform/db/LongBinary.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(DBFieldTest, BeginsWithoutTypeAndReadsAsNull)
{
    const CDBField field{};

    EXPECT_EQ(field.m_dwType, DBVT_NULL);
    EXPECT_TRUE(field.IsNull());
    EXPECT_EQ(field.GetName(), u"");
    EXPECT_EQ(field.AsString(), u"");
}

TEST(DBFieldTest, TellsItsTypeByOnePredicateEach)
{
    const struct
    {
        DWORD m_Type;
        const char*
            m_Predicates; // Bool Char Short Int Long Float Double Date String Binary Number Null
    } rows[] = {{DBVT_NULL, "...........N"},    {DBVT_BOOL, "B..........."},
                {DBVT_UCHAR, ".C.........."},   {DBVT_SHORT, "..S.......#."},
                {DBVT_LONG, "...IL.....#."},    {DBVT_SINGLE, ".....F....#."},
                {DBVT_DOUBLE, "......D...#."},  {DBVT_DATE, ".......d...."},
                {DBVT_STRING, "........s..."},  {DBVT_BINARY, ".........b.."},
                {DBVT_ASTRING, "............"}, {DBVT_WSTRING, "............"}};
    for (const auto& row : rows)
    {
        CDBField field;
        field.SetType(row.m_Type);
        std::string found;
        const auto add = [&](bool holds, char mark)
        {
            found += holds ? mark : '.';
        };
        add(field.IsBool(), 'B');
        add(field.IsChar(), 'C');
        add(field.IsShort(), 'S');
        add(field.IsInt(), 'I');
        add(field.IsLong(), 'L');
        add(field.IsFloat(), 'F');
        add(field.IsDouble(), 'D');
        add(field.IsDate(), 'd');
        add(field.IsString(), 's');
        add(field.IsBinary(), 'b');
        add(field.IsNumber(), '#');
        add(field.IsNull(), 'N');
        EXPECT_EQ(found, row.m_Predicates) << "type " << row.m_Type;
    }
}

TEST(DBFieldTest, CopiesEveryValueButBinaries)
{
    for (const DWORD type : COLUMN_TYPES)
    {
        const auto source = MakeField(type);
        SCOPED_TRACE(Show(*source));
        const std::string expected = type == DBVT_BINARY ? "BINARY " : Show(*source);

        const CDBField made(*source);
        EXPECT_EQ(Show(made), expected);
        for (const DWORD before : COLUMN_TYPES)
        {
            const auto target = MakeField(before);
            *target = *source;
            EXPECT_EQ(Show(*target), expected);
        }
    }
}

TEST(DBFieldTest, CopiesAVariantOfAnyText)
{
    CDBVariant variant;
    variant.SetType(DBVT_ASTRING);
    *variant.m_pstringA = "narrow";
    CDBField field;

    field = variant;

    EXPECT_EQ(Show(field), "ASTRING narrow");
}

TEST(DBFieldTest, CopiesNameAndParameterFlag)
{
    CODBCRecordset set;
    set.SetIntParam(u"count", 5);

    CDBField copy(set.Param(u"count"));
    EXPECT_EQ(copy.GetName(), u"count");
    copy = u"text"; // a parameter changes its type, a column would parse
    EXPECT_EQ(Show(copy), "STRING text");
}

TEST(DBFieldTest, StaysWhatItIsWhenAssignedToItself)
{
    const auto field = MakeField(DBVT_BINARY);
    CDBField& same = *field;

    *field = same;
    *field = static_cast<const CDBVariant&>(same);

    EXPECT_EQ(Show(*field), "BINARY \1\2\3");
}

TEST(DBFieldTest, ForgetsTypeAndValueWhenCleared)
{
    const auto field = MakeField(DBVT_STRING);

    field->Clear();

    EXPECT_EQ(Show(*field), "NULL");
    EXPECT_TRUE(field->IsNull());
}

TEST(DBFieldTest, OwnsTheBlockThatItIsGiven)
{
    const auto field = MakeField(DBVT_BINARY);

    EXPECT_TRUE(field->SetBinary(MakeBlock("new"), 2)); // the block may be larger than its use

    EXPECT_EQ(Show(*field), "BINARY ne");
    EXPECT_FALSE(MakeField(DBVT_LONG)->SetBinary(nullptr, 0));
}

TEST(DBFieldTest, TakesLettersDigitsAndUnderscoresForAColumnName)
{
    for (const char16_t* name : {u"A", u"part_2", u"  Value "})
        EXPECT_TRUE(CDBField::ValidName(name)) << testing::PrintToString(CString(name));
    for (const char16_t* name :
         {u"", u"   ", u"2nd", u"_a", u"a b", u"a-b", u"\u00C9t", u"a\u03A9"})
        EXPECT_FALSE(CDBField::ValidName(name)) << testing::PrintToString(CString(name));
}

} // namespace
} // namespace utility
