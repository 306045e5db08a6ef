#include "text/numbers/Expression.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/String.h"
#include "text/numbers/RealNumber.h"

namespace utility
{

namespace
{

constexpr int PARENTHESIS_LIMIT = 1000;
constexpr char16_t NO_OPERATOR = 0;

/// What a level waits for while another level is worked out for it.
enum class EWait
{
    Nothing,
    FirstParenthesis,   // the level begins with a parenthesis
    OperandParenthesis, // the right operand is one
    Remainder           // the right operand is all that is left of the level
};

/// One level: a parenthesis, or the remainder of one behind a + or -.
struct CLevel
{
    char16_t m_Pending;   // in front of a remainder: its first number takes the sign in
    char16_t m_Enclosing; // in front of a parenthesis; a remainder has none
    char16_t m_Operator = NO_OPERATOR;
    EWait m_Wait = EWait::Nothing;
    bool m_ClosedItself = false; // its own ) is used up
    double m_Value = 0;
};

int Rank(char16_t unit)
{
    switch (unit)
    {
    case u'+':
        return 1;
    case u'-':
        return 2;
    case u'*':
        return 3;
    case u'/':
        return 4;
    default:
        return 0;
    }
}

/// Works one expression out, with a stack of its own in place of the machine's.
class CExpressionReader
{
public:
    CExpressionReader(const CString& text, int start, char16_t decimalChar, bool onlyDecimalChar)
        : m_Text(text),
          m_Index(start),
          m_DecimalChar(decimalChar),
          m_OnlyDecimalChar(onlyDecimalChar)
    {
    }

    double Read();
    int GetIndex() const { return m_Index; }

private:
    char16_t Peek() const;
    char16_t PeekOperator() const;
    void SkipBlanks();
    double ReadNumber();
    bool TakeOpening();

    void Begin(EWait wait, char16_t pending, char16_t enclosing);
    void ReadOperand();
    void Apply(double operand);
    void TakeOperator();
    void LookBehindClosing();
    void End();

    const CString& m_Text;
    int m_Index;
    char16_t m_DecimalChar;
    bool m_OnlyDecimalChar;

    std::vector<CLevel> m_Levels;
    int m_OpenParentheses = 0;
    double m_Result = 0;
};

double CExpressionReader::Read()
{
    Begin(EWait::Nothing, NO_OPERATOR, NO_OPERATOR);
    while (!m_Levels.empty())
    {
        if (m_Levels.back().m_Operator != NO_OPERATOR)
            ReadOperand();
        else
            End();
    }
    return m_Result;
}

char16_t CExpressionReader::Peek() const
{
    return m_Index < m_Text.GetLength() ? m_Text.GetString()[m_Index] : u'\0';
}

char16_t CExpressionReader::PeekOperator() const
{
    return Rank(Peek()) != 0 ? Peek() : NO_OPERATOR;
}

void CExpressionReader::SkipBlanks()
{
    while (IsSpace(Peek()))
        ++m_Index;
}

double CExpressionReader::ReadNumber()
{
    double value = 0;
    m_Index = ReadRealNumber(value, m_Text, m_Index, m_DecimalChar, m_OnlyDecimalChar);
    return value;
}

/// Steps over a ( unless too many are open: there the expression ends, as at any stranger.
bool CExpressionReader::TakeOpening()
{
    if (Peek() != u'(' || m_OpenParentheses == PARENTHESIS_LIMIT)
        return false;
    ++m_OpenParentheses;
    ++m_Index;
    return true;
}

/// Begins a level, for which the present one waits, and reads its first value if that is a number.
void CExpressionReader::Begin(EWait wait, char16_t pending, char16_t enclosing)
{
    if (!m_Levels.empty())
        m_Levels.back().m_Wait = wait;
    m_Levels.push_back({pending, enclosing});
    while (TakeOpening()) // on purpose before blanks are skipped: one hides the parenthesis
    {
        m_Levels.back().m_Wait = EWait::FirstParenthesis;
        m_Levels.push_back({NO_OPERATOR, m_Levels.back().m_Pending});
    }

    SkipBlanks();
    CLevel& level = m_Levels.back();
    level.m_Value = ReadNumber();
    if (level.m_Pending == u'-')
        level.m_Value = -level.m_Value;
    SkipBlanks();
    level.m_Operator = PeekOperator();
}

void CExpressionReader::ReadOperand()
{
    const char16_t current = m_Levels.back().m_Operator;
    ++m_Index;
    SkipBlanks();
    if (TakeOpening())
    {
        Begin(EWait::OperandParenthesis, NO_OPERATOR, current);
    }
    else if (current == u'*' || current == u'/')
    {
        Apply(ReadNumber());
        TakeOperator();
    }
    else
    {
        Begin(EWait::Remainder, current, NO_OPERATOR);
    }
}

void CExpressionReader::Apply(double operand)
{
    CLevel& level = m_Levels.back();
    switch (level.m_Operator)
    {
    case u'+':
        level.m_Value += operand;
        break;
    case u'-': // a remainder has the sign in it already
        level.m_Value += level.m_Wait == EWait::Remainder ? operand : -operand;
        break;
    case u'*':
        level.m_Value *= operand;
        break;
    case u'/': // a division by nothing is left out without a word
        level.m_Value /= operand != 0 ? operand : 1;
        break;
    default:
        break;
    }
}

void CExpressionReader::TakeOperator()
{
    SkipBlanks();
    CLevel& level = m_Levels.back();
    level.m_Wait = EWait::Nothing;
    level.m_Operator = PeekOperator();
    if (Peek() == u')' && level.m_Enclosing != NO_OPERATOR && !level.m_ClosedItself)
        LookBehindClosing();
}

/// Goes on at this level, behind its own ), if the operator there binds tighter than the one in
/// front of the parenthesis.
void CExpressionReader::LookBehindClosing()
{
    const int closing = m_Index++;
    SkipBlanks();
    CLevel& level = m_Levels.back();
    if (Rank(Peek()) > Rank(level.m_Enclosing))
    {
        level.m_ClosedItself = true;
        level.m_Operator = Peek();
    }
    else
    {
        m_Index = closing;
    }
}

/// Hands the value of the level to the one that waits for it.
void CExpressionReader::End()
{
    const CLevel ended = m_Levels.back();
    m_Levels.pop_back();
    if (m_Levels.empty())
    {
        m_Result = ended.m_Value;
        return;
    }

    CLevel& level = m_Levels.back();
    if (level.m_Wait != EWait::Remainder)
    {
        --m_OpenParentheses;
        if (!ended.m_ClosedItself && Peek() == u')')
            ++m_Index;
    }
    if (level.m_Wait == EWait::FirstParenthesis)
    {
        level.m_Value = ended.m_Value;
        SkipBlanks();
        level.m_Operator = PeekOperator();
    }
    else
    {
        Apply(ended.m_Value);
        TakeOperator();
    }
}

} // namespace

int EvaluateExpression(double& value, const CString& text, int start, char16_t decimalChar,
                       bool onlyDecimalChar)
{
    value = 0;
    if (start < 0)
        return start;

    CExpressionReader reader(text, start, decimalChar, onlyDecimalChar);
    value = reader.Read();
    return reader.GetIndex();
}

} // namespace utility
