#include "text/numbers/LengthUnit.h"

#include "frame/AppError.h"
#include "resources/StringIds.h"
#include "text/numbers/LengthUnitConverter.h"

#include "support/PrintText.h"

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
        {E::Millimetre, true, true, u',', 2.0, u"2,000"},
        {E::Millimetre, true, true, u',', -1.5, u"-1,500-"},
        {E::Millimetre, true, false, u'.', -1.2346, u"-1.235+"},
        {E::Millimetre, true, true, 0, 1.5, u"1500-"},
        {E::Micron, true, true, 0, 1.0, u"1"},
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

TEST(LengthUnitTest, EveryPairOfUnitsHasItsFactor)
{
    const double factors[7][7] = {
        // inch, thou, metre, mm, micron, cm, mils
        {1, 1000, 0.0254, 25.4, 25400, 2.54, 1000},
        {0.001, 1, 2.54e-5, 0.0254, 25.4, 0.00254, 1},
        {1e4 / 254, 1e7 / 254, 1, 1000, 1e6, 100, 1e7 / 254},
        {10 / 254.0, 1e4 / 254, 0.001, 1, 1000, 0.1, 1e4 / 254},
        {0.01 / 254, 10 / 254.0, 1e-6, 0.001, 1, 0.0001, 10 / 254.0},
        {100 / 254.0, 1e5 / 254, 0.01, 10, 1e4, 1, 1e5 / 254},
        {0.001, 1, 2.54e-5, 0.0254, 25.4, 0.00254, 1},
    };
    for (int from = 0; from < 7; ++from)
    {
        for (int to = 0; to < 7; ++to)
        {
            SCOPED_TRACE(testing::Message() << from << " to " << to);
            const CLengthUnit source(static_cast<E>(from), 1.0, false, true);
            const CLengthUnit halves(static_cast<E>(to), 2.0, false, true);
            EXPECT_DOUBLE_EQ(CLengthUnit(static_cast<E>(to), 1.0, false, true).Convert(1.0, source),
                             factors[from][to]);
            EXPECT_DOUBLE_EQ(halves.Convert(3.0, source), 6 * factors[from][to]);
            EXPECT_DOUBLE_EQ(source.Convert(6.0, halves), 3 * factors[to][from]);
        }
    }
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
}

TEST(LengthUnitTest, TurnsAFactorIntoAnotherUnitOfItsSystem)
{
    const struct
    {
        E m_Base;
        double m_Units;
        E m_Result;
        double m_ResultUnits;
    } rows[] = {
        {E::Inch, 1000, E::Thou, 1},
        {E::Inch, 2, E::Thou, 0.002},
        {E::Inch, 0.5, E::Inch, 0.5},
        {E::Thou, 2, E::Thou, 2},
        {E::Thou, 0.001, E::Inch, 1},
        {E::Thou, 0.5, E::Inch, 500},
        {E::Mils, 2, E::Thou, 2},
        {E::Mils, 0.001, E::Inch, 1},
        {E::Metre, 1000, E::Millimetre, 1},
        {E::Metre, 500, E::Centimetre, 5},
        {E::Metre, 100, E::Centimetre, 1},
        {E::Metre, 2, E::Centimetre, 0.02},
        {E::Metre, 1e7, E::Micron, 10},
        {E::Metre, 0.5, E::Metre, 0.5},
        {E::Centimetre, 2, E::Millimetre, 0.2},
        {E::Centimetre, 1e4, E::Micron, 1},
        {E::Centimetre, 0.01, E::Metre, 1},
        {E::Centimetre, 0.5, E::Metre, 50},
        {E::Millimetre, 2, E::Micron, 0.002},
        {E::Millimetre, 0.001, E::Metre, 1},
        {E::Millimetre, 0.1, E::Centimetre, 1},
        {E::Millimetre, 0.5, E::Centimetre, 5},
        {E::Micron, 2, E::Micron, 2},
        {E::Micron, 0.001, E::Millimetre, 1},
        {E::Micron, 0.0001, E::Millimetre, 0.1},
        {E::Micron, 0.5, E::Millimetre, 500},
        {E::Micron, 1e-9, E::Metre, 0.001},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << static_cast<int>(row.m_Base) << " / " << row.m_Units);
        CLengthUnit unit(row.m_Base, row.m_Units, false, true);
        unit.NormaliseBaseUnit();
        EXPECT_EQ(unit.GetBaseUnit(), row.m_Result);
        EXPECT_DOUBLE_EQ(unit.GetUnitsPerBaseUnit(), row.m_ResultUnits);
        EXPECT_EQ(unit.GetName(),
                  CLengthUnit(row.m_Result, unit.GetUnitsPerBaseUnit(), false, true).GetName());
    }
    for (int base = 0; base < 7; ++base)
    {
        CLengthUnit unit(static_cast<E>(base), 1.0, false, true);
        unit.SetName(u"own");
        unit.NormaliseBaseUnit();
        EXPECT_TRUE(unit == CLengthUnit(static_cast<E>(base), 1.0, false, true)) << base;
    }
}

} // namespace
} // namespace utility
