#include "text/numbers/Expression.h"

#include "platform/base/Encoding.h"
#include "platform/base/String.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace utility
{
namespace
{

TEST(ExpressionTest, WorksOutWhatUsersType)
{
    const struct
    {
        const char16_t* m_Text;
        double m_Value;
        int m_Index; // -1 for the whole text
    } rows[] = {
        // Sums and products
        {u"6-4-2-1", -1, -1},
        {u"6/2+4/2+2/2", 6, -1},
        {u"6/2*4/2*6/2", 18, -1},
        {u"6-4/2", 4, -1},
        {u"6/2-4/2", 1, -1},
        {u"6*2-4*2", 4, -1},
        {u"6 e2 *2e-1", 120, -1},
        {u"1.0 / 1.7e-06", 588235.2941176471, -1},
        {u"2*-3", -6, -1},
        {u"2--3", 5, -1},
        // Parentheses
        {u"6*(2-4)*2", -24, -1},
        {u"(6*2-4)*2", 16, -1},
        {u"6*(2-4*2)", -36, -1},
        {u"((1+2)*3)", 9, -1},
        {u"10-(2+3)", 5, -1},
        {u"6 * ( 2-4 )", -12, -1},
        // The look behind a closing parenthesis
        {u"2+(1-3)*4", -6, -1},
        {u"2+(1-3) *4", -6, -1},
        {u"2+(1-3*2)*4", -18, -1},
        {u"2+(5)*4", 28, -1},
        {u"1+(1)/5", 0.4, -1},
        {u"2-(1-3)*4+5", 5, -1},
        {u"2+(1-3)-4", -4, -1},
        {u"6*(1+1)/4", 3, -1},
        {u"2*(1+(2-3)*4)+5", -1, -1},
        {u"2*(3+(1+2)+3)", 18, -1},
        // Divisions by nothing, missing operands
        {u"1/0", 1, -1},
        {u"6/(0)*2", 12, -1},
        {u"2+", 2, -1},
        {u"2*", 0, -1},
        {u"5/", 5, -1},
        {u"2*+3", 6, -1},
        // Where an expression ends
        {u"", 0, 0},
        {u"   ", 0, 3},
        {u"5 mm", 5, 2},
        {u"mm", 0, 0},
        {u" (1+2)", 0, 1},
        {u"(1+2", 3, -1},
        {u"1+2)", 3, 3},
        {u"2*)", 0, 2},
        {u"(1+2)(3)", 3, 5},
        {u"3,5+1", 4.5, -1},
    };
    for (const auto& row : rows)
    {
        const CString text(row.m_Text);
        SCOPED_TRACE(std::string(text.View().begin(), text.View().end()));
        double value = 99;
        EXPECT_EQ(EvaluateExpression(value, text, 0, u'.', false),
                  row.m_Index < 0 ? text.GetLength() : row.m_Index);
        EXPECT_DOUBLE_EQ(value, row.m_Value);
    }
}

TEST(ExpressionTest, ReadsFromTheGivenIndexWithTheGivenDecimalCharacter)
{
    double value = 99;

    EXPECT_EQ(EvaluateExpression(value, u"x=1,5+1", 2, u',', true), 7);
    EXPECT_EQ(value, 2.5);
    EXPECT_EQ(EvaluateExpression(value, u"x=1,5+1", 2, u'.', true), 3);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(EvaluateExpression(value, u"1", -1, u'.', false), -1);
    EXPECT_EQ(value, 0);
}

TEST(ExpressionTest, SumsAreAddedFromTheRight)
{
    double value = 0;

    EvaluateExpression(value, u"1e16+1+1", 0, u'.', false);

    EXPECT_EQ(value, 1e16 + (1.0 + 1.0));
    EXPECT_NE(value, 1e16 + 1.0 + 1.0);
}

TEST(ExpressionTest, SumsOfAnyLengthAndDeepParenthesesAreSafe)
{
    std::u16string sum = u"0";
    for (int count = 0; count < 300'000; ++count)
        sum += u"+1";
    double value = 0;

    EXPECT_EQ(EvaluateExpression(value, CString(sum), 0, u'.', false), 600'001);
    EXPECT_EQ(value, 300'000);

    const std::u16string deep = std::u16string(1000, u'(') + u"7" + std::u16string(1000, u')');
    EXPECT_EQ(EvaluateExpression(value, CString(deep), 0, u'.', false), 2001);
    EXPECT_EQ(value, 7);

    const std::u16string deeper = std::u16string(100'000, u'(');
    EXPECT_EQ(EvaluateExpression(value, CString(deeper), 0, u'.', false), 1000);
    EXPECT_EQ(value, 0);
}

TEST(ExpressionTest, ClosedParenthesesMakeRoomForOthers)
{
    std::u16string many = u"0";
    for (int count = 0; count < 1'500; ++count)
        many += u"+(1+1)";
    double value = 0;

    EXPECT_EQ(EvaluateExpression(value, CString(many), 0, u'.', false),
              static_cast<int>(many.size()));

    EXPECT_EQ(value, 3'000);
}

TEST(ExpressionTest, TheFuzzCorpusIsReadWithinItsText)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(UTILITY_FUZZ_DATA "/Expression"))
    {
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const CString text = FromUtf8(std::string{std::istreambuf_iterator<char>(file), {}});
        double value = 0;
        ++files;
        for (int start = 0; start <= text.GetLength(); ++start)
        {
            const int index = EvaluateExpression(value, text, start, u'.', false);
            EXPECT_GE(index, start);
            EXPECT_LE(index, text.GetLength());
        }
    }
    EXPECT_GE(files, 4);
}

} // namespace
} // namespace utility
