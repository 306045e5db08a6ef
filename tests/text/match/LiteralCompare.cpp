#include "text/match/LiteralCompare.h"

namespace utility
{

namespace
{

bool IsNumeral(char16_t c)
{
    return c >= u'0' && c <= u'9';
}
bool IsWordUnit(char16_t c)
{
    return IsNumeral(c) || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
char16_t Raise(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE) ? static_cast<char16_t>(c - 32) : c;
}

class CLiteralCompare
{
public:
    CLiteralCompare(const std::u16string& a, const std::u16string& b) : m_A(a), m_B(b) {}

    int Compare(bool caseSensitive, bool numbersByRun, bool numbersByValue);

private:
    char16_t A() const { return m_I < m_A.size() ? m_A[m_I] : u'\0'; }
    char16_t B() const { return m_J < m_B.size() ? m_B[m_J] : u'\0'; }
    static bool IsSeparator(char16_t c) { return c == u'.' || c == u','; }

    int CompareUnits(bool caseSensitive) const;
    int CompareRun(int r);
    int CompareFraction();

    const std::u16string& m_A;
    const std::u16string& m_B;
    std::size_t m_I = 0;
    std::size_t m_J = 0;
};

/// Steps 2 to 4.
int CLiteralCompare::CompareUnits(bool caseSensitive) const
{
    int r = 0;
    if (A() == u'<' && B() != u'<')
        r = -1;
    else if (B() == u'<' && A() != u'<')
        r = 1;
    else if (IsWordUnit(A()) && !IsWordUnit(B()))
        r = 1;
    else if (!IsWordUnit(A()) && IsWordUnit(B()))
        r = -1;
    else
        r = Raise(A()) - Raise(B());
    if (r == 0 && caseSensitive)
        r = A() - B();
    return r;
}

/// Step 6.
int CLiteralCompare::CompareRun(int r)
{
    m_I++;
    m_J++;
    while (IsNumeral(A()) && IsNumeral(B()))
    {
        r = r != 0 ? r : A() - B();
        m_I++;
        m_J++;
    }
    if (IsNumeral(A()))
        return 1;
    return IsNumeral(B()) ? -1 : r;
}

/// Step 7.
int CLiteralCompare::CompareFraction()
{
    if (IsSeparator(A()) && A() == B())
    {
        m_I++;
        m_J++;
        while (IsNumeral(A()) && A() == B())
        {
            m_I++;
            m_J++;
        }
        return IsNumeral(A()) && IsNumeral(B()) ? A() - B() : 0;
    }
    if (IsSeparator(A()) && IsSeparator(B()))
        (A() == u',' ? m_I : m_J)++;
    else if (IsSeparator(A()))
        m_I++;
    else if (IsSeparator(B()))
        m_J++;
    return 0;
}

int CLiteralCompare::Compare(bool caseSensitive, bool numbersByRun, bool numbersByValue)
{
    for (;;)
    {
        const bool aEnded = m_I == m_A.size();
        const bool bEnded = m_J == m_B.size();
        if (aEnded && bEnded)
            return numbersByValue ? static_cast<int>(m_A.size()) - static_cast<int>(m_B.size()) : 0;
        if (aEnded || bEnded)
            return bEnded ? 1 : -1;

        int r = CompareUnits(caseSensitive);
        if (!numbersByRun || !IsNumeral(A()) || !IsNumeral(B()))
        {
            m_I++;
            m_J++;
            if (r != 0)
                return r;
            continue;
        }
        r = CompareRun(r);
        if (r != 0)
            return r;
        if (!numbersByValue)
            continue;
        r = CompareFraction();
        if (r != 0)
            return r;
        while (A() == u'0')
            m_I++;
        while (B() == u'0')
            m_J++;
        if (m_I == m_A.size() && m_J == m_B.size())
        {
            r = static_cast<int>(m_I) - static_cast<int>(m_J);
            if (r != 0)
                return r;
            continue;
        }
        if (IsNumeral(A()))
            return 1;
        if (IsNumeral(B()))
            return -1;
    }
}

} // namespace

int CompareLiterally(const std::u16string& a, const std::u16string& b, bool caseSensitive,
                     bool numbersByRun, bool numbersByValue)
{
    return CLiteralCompare(a, b).Compare(caseSensitive, numbersByRun, numbersByValue);
}

} // namespace utility
