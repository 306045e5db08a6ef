#include "text/numbers/LengthUnit.h"

#include "frame/AppError.h"
#include "platform/base/object/Archive.h"
#include "platform/base/object/ArchiveException.h"
#include "platform/system/file/File.h"
#include "resources/StringIds.h"
#include "settings/form/FormExportWriter.h"
#include "settings/form/FormItem.h"
#include "text/numbers/LengthUnitConverter.h"

#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace utility
{
namespace
{

using E = EBaseLengthUnit;

TEST(LengthUnitTest, FormatsByPrecisionZerosMarkAndDecimalCharacter)
{
    const struct
    {
        E m_Base;
        bool m_Mark;
        bool m_Zeros;
        char16_t m_DecimalChar;
        double m_Value;
        const char16_t* m_Text;
    } rows[] = {
        {E::Thou, false, true, u'.', 1234.56, u"1234.6"},
        {E::Millimetre, false, true, u'.', 1.5, u"1.500"},
        {E::Millimetre, false, false, u'.', 1.5, u"1.5"},
        {E::Millimetre, false, false, u'.', 2.0, u"2"},
        {E::Micron, false, false, u'.', 100, u"100"},
        {E::Millimetre, true, true, u'.', 1.2344, u"1.234+"},
        {E::Millimetre, true, true, u'.', 1.2346, u"1.235-"},
        {E::Millimetre, true, true, u'.', 1.234, u"1.234"},
        {E::Millimetre, true, true, u',', 1.5, u"1,500+"},
        {E::Millimetre, false, true, u',', 1.5, u"1,500"},
        {E::Millimetre, false, true, 0, 0.05, u"50"},
        {E::Millimetre, false, true, 0, 1.5, u"1500"},
        {E::Millimetre, false, true, 0, 0.0, u"0"},
        {E::Millimetre, false, true, 0, -0.05, u"-0050"},
        {E::Millimetre, false, true, u'.', -0.0001, u"-0.000"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CLengthUnit unit(row.m_Base, 1.0, row.m_Mark, row.m_Zeros);
        unit.SetDecimalChar(row.m_DecimalChar);
        EXPECT_EQ(unit.Convert(row.m_Value), CString(row.m_Text));
    }
}

TEST(LengthUnitTest, EachUnitHasItsPlacesNamesAndNextUnit)
{
    const struct
    {
        int m_Precision;
        E m_Next;
    } rows[] = {{4, E::Inch},       {1, E::Inch},  {6, E::Metre}, {3, E::Centimetre},
                {0, E::Millimetre}, {4, E::Metre}, {1, E::Inch}};
    for (int base = 0; base < 7; ++base)
    {
        SCOPED_TRACE(base);
        const CLengthUnit unit(static_cast<E>(base), 1.0, false, true);
        EXPECT_EQ(unit.GetPrecision(), rows[base].m_Precision);
        EXPECT_EQ(CLengthUnit::NextBaseUnit(static_cast<E>(base)), rows[base].m_Next);
    }
    EXPECT_EQ(CLengthUnit::FirstBaseUnit(true), E::Micron);
    EXPECT_EQ(CLengthUnit::FirstBaseUnit(false), E::Thou);
    const CLengthUnit half(E::Millimetre, 2.0, false, true);
    EXPECT_EQ(half.GetName(), CString(u"(mm/2.000000)"));
    EXPECT_EQ(CLengthUnit().GetSquaredName(), CString(u"thou squared"));
    EXPECT_EQ(CLengthUnit().GetSquaredShortName(), CString(u"thou sq."));
    EXPECT_EQ(CLengthUnit::GetPrecisionStep(3), 1.0 / 10 / 10 / 10);
}

TEST(LengthUnitTest, ConvertsBetweenUnits)
{
    const CLengthUnit inch(E::Inch, 1.0, false, true);
    const CLengthUnit mm(E::Millimetre, 1.0, false, true);
    const CLengthUnit mils(E::Mils, 1.0, false, true);
    EXPECT_EQ(mm.Convert(1.0, inch), 25.4);
    EXPECT_EQ(mils.Convert(1.0, CLengthUnit()), 1.0);
    EXPECT_DOUBLE_EQ(mm.SquaredConvert(1.0, inch), 645.16);
    EXPECT_EQ(mm.Convert(CPoint(1, -1), inch), CPoint(25, -25));
    EXPECT_EQ(CLengthUnit(E::Inch, 2, false, true).Convert(CPoint(1, -1), CLengthUnit(inch)),
              CPoint(2, -2));
    CString text;
    mm.Convert(u"2", inch, text);
    EXPECT_EQ(text, CString(u"50.800"));

    CLengthUnitConverter converter(inch);
    converter.SetBaseUnit(E::Millimetre);
    converter.SetPrecision(2);
    EXPECT_EQ(converter.Convert(2), 50.8);
    converter.Convert(CString(u"2"), text);
    EXPECT_EQ(text, CString(u"50.80"));
}

TEST(LengthUnitTest, FormatAndReadAgreeInAllPairsOfUnits)
{
    for (int from = 0; from < 7; ++from)
    {
        for (int to = 0; to < 7; ++to)
        {
            SCOPED_TRACE(testing::Message() << from << " to " << to);
            const CLengthUnit source(static_cast<E>(from), 1.0, false, true);
            const CLengthUnit target(static_cast<E>(to), 1.0, false, true);
            for (const double value : {0.0, 0.123456, 7.0, 1999.75, -3.5})
            {
                const double expected = target.Convert(value, source);
                CString text = target.Convert(expected) + u" " + target.GetShortName();
                double read = 99;
                ASSERT_TRUE(CLengthUnit::ReadLengthValue(target, source, text, read));
                EXPECT_LE(std::fabs(read - expected), 0.5001 * target.GetPrecisionStep());
            }
        }
    }
}

TEST(LengthUnitTest, MatchesNamesByTheirBeginning)
{
    const struct
    {
        const char16_t* m_Text;
        bool m_Found;
        E m_Unit;
    } rows[] = {
        {u"M", true, E::Metre},        {u"MM", true, E::Millimetre}, {u"mil", true, E::Mils},
        {u"mi", true, E::Mils},        {u"th", true, E::Thou},       {u"\"", true, E::Inch},
        {u"", true, E::Mils},          {u"mic", true, E::Micron},    {u"x", false, E::NoUnit},
        {u"inches", false, E::NoUnit},
    };
    for (const auto& row : rows)
    {
        E unit = E::NoUnit;
        EXPECT_EQ(CLengthUnit::MatchBaseUnit(row.m_Text, unit), row.m_Found);
        EXPECT_EQ(unit, row.m_Unit) << testing::PrintToString(CString(row.m_Text));
    }
}

TEST(LengthUnitTest, ReadsTypedLengthsAndNamesWhatIsNone)
{
    const struct
    {
        const char16_t* m_Text;
        double m_Value;
        E m_Unit1;
        E m_Unit2;
        UINT m_Error;
        const char16_t* m_Insert = u"";
    } rows[] = {
        {u"5", 5, E::NoUnit, E::NoUnit, 0},
        {u"2*3 mm", 6, E::Millimetre, E::NoUnit, 0},
        {u"5 mm ", 5, E::Millimetre, E::NoUnit, 0},
        {u"1.2 inch", 1.2, E::Inch, E::NoUnit, 0},
        {u"3\"", 3, E::Inch, E::NoUnit, 0},
        {u"5 -mm", 5, E::Millimetre, E::NoUnit, 0},
        {u"1 inch 3 mm", 3, E::Inch, E::Millimetre, 0},
        {u"  ", 0, E::NoUnit, E::NoUnit, 0},
        {u" mm", 0, E::Millimetre, E::NoUnit, 0},
        {u"", 0, E::NoUnit, E::NoUnit, IDS_BAD_NUMBER, u""},
        {u"mm", 0, E::NoUnit, E::NoUnit, IDS_BAD_NUMBER, u"mm"},
        {u"5 foo", 5, E::NoUnit, E::NoUnit, IDS_BAD_LENGTH_UNIT, u"foo"},
        {u"5 mm x", 0, E::Millimetre, E::NoUnit, IDS_BAD_NUMBER, u"5 mm x"},
        {u"5 mm 3 foo", 3, E::Millimetre, E::NoUnit, IDS_BAD_LENGTH_UNIT, u"foo"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CAppError::SetLastError(0);
        CString text = row.m_Text;
        double value1 = 99;
        double value2 = 99;
        E unit1 = E::Inch;
        E unit2 = E::Inch;
        EXPECT_EQ(CLengthUnit::ReadLengthValue(text, value1, unit1, value2, unit2, u'.'),
                  row.m_Error == 0);
        EXPECT_EQ(value1, row.m_Value);
        EXPECT_EQ(value2, 0);
        EXPECT_EQ(unit1, row.m_Unit1);
        EXPECT_EQ(unit2, row.m_Unit2);
        if (row.m_Error == 0)
            continue;
        EXPECT_EQ(CAppError::GetLastError(), row.m_Error);
        EXPECT_EQ(CAppError::GetLastErrorString(),
                  CAppError::GetErrorString(row.m_Error, CString(row.m_Insert)));
    }
}

TEST(LengthUnitTest, ChangesItsBaseAndKeepsTheSize)
{
    CLengthUnit unit(E::Millimetre, 2.0, false, true);
    unit.ChangeBaseUnit(E::Metre);
    EXPECT_EQ(unit.GetUnitsPerBaseUnit(), 2000);
    EXPECT_EQ(unit.GetName(), CString(u"(mm/2.000000)"));

    const struct
    {
        E m_Base;
        double m_Units;
        E m_Result;
        double m_ResultUnits;
    } rows[] = {
        {E::Metre, 1000, E::Millimetre, 1}, {E::Metre, 100, E::Centimetre, 1},
        {E::Inch, 1000, E::Thou, 1},        {E::Micron, 0.001, E::Millimetre, 1},
        {E::Thou, 0.001, E::Inch, 1},       {E::Millimetre, 1, E::Millimetre, 1},
        {E::Metre, 500, E::Centimetre, 5},
    };
    for (const auto& row : rows)
    {
        CLengthUnit factor(row.m_Base, row.m_Units, false, true);
        factor.NormaliseBaseUnit();
        EXPECT_DOUBLE_EQ(factor.GetUnitsPerBaseUnit(), row.m_ResultUnits);
        EXPECT_EQ(factor.GetBaseUnit(), row.m_Result);
    }
}

class LengthUnitStoreTest : public testing::Test
{
protected:
    static CLengthUnit MakeUnit()
    {
        CLengthUnit unit(E::Millimetre, 2.0, true, false);
        unit.SetShortName(u"h");
        unit.SetDecimalChar(u',');
        return unit;
    }
    CTemporaryFolder m_Folder;
};

TEST_F(LengthUnitStoreTest, FormTextComesBack)
{
    CFormExportWriter writer;
    ASSERT_TRUE(writer.Open(m_Folder.PathOf(u"a.frm")));
    writer.OpenForm(u"Unit", true);
    EXPECT_TRUE(MakeUnit().ExportContents(writer, true));
    writer.Close();
    EXPECT_EQ(m_Folder.Read(u"a.frm"), "(Unit\r\n  (Base 3)\r\n  (UnitsPerBase 2)\r\n"
                                       "  (Name \"(mm/2.000000)\")\r\n  (ShName \"h\")\r\n"
                                       "  (Precision 2)\r\n  (NoTrailing)\r\n  (WantRounding)\r\n"
                                       "  (DecChar \",\")\r\n)\r\n");

    CFormImportReader reader;
    ASSERT_TRUE(reader.Open(m_Folder.PathOf(u"a.frm")));
    CFormItem root(&reader);
    CFormItem* item = root.OpenNext();
    ASSERT_TRUE(item);
    CLengthUnit read;
    EXPECT_TRUE(read.Import(item));
    item->End();
    EXPECT_TRUE(read == MakeUnit());
}

TEST_F(LengthUnitStoreTest, ArchiveBytesComeBackInBothVersions)
{
    using namespace std::string_literals;
    const std::string head = "\x03\0\0\0\0\0\0\0\0\0\0\x40\xFF\xFE\xFF\x0D"
                             "(\0m\0m\0/\0\x32\0.\0\x30\0\x30\0\x30\0\x30\0\x30\0\x30\0)\0"
                             "\xFF\xFE\xFF\x01h\0\x02\0\0\0\0\x01"s;
    for (const int version : {1, 2})
    {
        SCOPED_TRACE(version);
        CLengthUnit unit = MakeUnit();
        {
            CFile file(m_Folder.PathOf(u"a"), CFile::modeCreate | CFile::modeWrite);
            CArchive archive(&file, CArchive::store);
            unit.Serialize(archive, version);
        }
        EXPECT_EQ(m_Folder.Read(u"a"), version == 1 ? head : head + ",\0"s);

        CFile file(m_Folder.PathOf(u"a"), CFile::modeRead);
        CArchive archive(&file, CArchive::load);
        CLengthUnit read;
        read.Serialize(archive, version);
        EXPECT_EQ(read.GetDecimalChar(), version == 1 ? u'.' : u',');
        read.SetDecimalChar(u',');
        EXPECT_TRUE(read == unit);
    }
    CFile file(m_Folder.MakeFile(u"cut", head.substr(0, 30)), CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    CLengthUnit kept;
    int cause = 0;
    try
    {
        kept.Serialize(archive, 2);
    }
    catch (CArchiveException* exception)
    {
        const CExceptionGuard guard(exception);
        cause = exception->m_cause;
    }
    EXPECT_EQ(cause, CArchiveException::endOfFile);
    EXPECT_TRUE(kept == CLengthUnit());
}

} // namespace
} // namespace utility
