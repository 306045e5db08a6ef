#pragma once

#include "platform/base/CharacterClass.h"
#include "platform/ui/dialogtext/DialogTextFault.h"

#include <string_view>

namespace utility
{

/// A text as a template gives it: between quotes, still with its escapes, or the number of a text
/// of the string table.
struct CTemplateText
{
    std::u16string_view m_Quoted;
    unsigned int m_Id = 0; // 0: m_Quoted counts

    constexpr bool IsEmpty() const { return m_Id == 0 && m_Quoted.empty(); }
};

/// Takes words, numbers and quoted texts from a text of dialog templates, front to back.
///
/// Every `Take...` skips blanks first, stays within the line, and leaves its output and the place
/// alone when it fails; the first failure that is noted stays the fault. Runs when compiled, too.
class CDialogTextScanner
{
public:
    constexpr explicit CDialogTextScanner(std::u16string_view text) : m_Text(text) {}

    /// Goes to the next line that has something; false at the end of the text.
    constexpr bool NextLine()
    {
        for (SkipBlanks(); m_Place < m_Text.size() && IsAtLineEnd(); SkipBlanks())
        {
            SkipComment();
            if (m_Place == m_Text.size())
                break;
            m_Place++;
            m_Line++;
            m_LineStart = m_Place;
        }
        return m_Place < m_Text.size();
    }

    constexpr bool IsAtLineEnd() const
    {
        return m_Place == m_Text.size() || m_Text[m_Place] == u'\n' || m_Text[m_Place] == u'#';
    }

    /// A run of letters, digits and `_` that begins with a letter.
    constexpr bool TakeWord(std::u16string_view& word)
    {
        SkipBlanks();
        std::size_t end = m_Place;
        while (end < m_Text.size() && IsWordUnit(m_Text[end]))
            end++;
        if (end == m_Place || IsDigit(m_Text[m_Place]))
            return false;

        word = m_Text.substr(m_Place, end - m_Place);
        m_Place = end;
        return true;
    }

    constexpr bool TakeSign(char16_t sign)
    {
        if (!IsNext(sign))
            return false;
        m_Place++;
        return true;
    }

    /// Decimal, or hexadecimal behind 0x; fails, with the fault noted, beyond `most`.
    constexpr bool TakeNumber(unsigned int& number, unsigned int most)
    {
        SkipBlanks();
        const bool isHexadecimal = m_Text.substr(m_Place).starts_with(u"0x");
        const std::size_t start = m_Place + (isHexadecimal ? 2 : 0);
        const unsigned int base = isHexadecimal ? 16 : 10;
        unsigned long long value = 0;
        std::size_t end = start;
        for (; end < m_Text.size(); end++)
        {
            const int digit = HexDigitValue(m_Text[end]);
            if (digit < 0 || (!isHexadecimal && !IsDigit(m_Text[end])))
                break;
            value = value * base + static_cast<unsigned int>(digit);
            if (value > most)
                return Note(EDialogTextNeed::SmallerNumber);
        }
        if (end == start)
            return false;

        number = static_cast<unsigned int>(value);
        m_Place = end;
        return true;
    }

    /// "..." with \n, \" and \\ inside, or @ and a number of the string table.
    constexpr bool TakeText(CTemplateText& text)
    {
        SkipBlanks();
        if (TakeSign(u'@'))
            return TakeNumber(text.m_Id, MOST_ID) || Note(EDialogTextNeed::Number);
        if (!IsNext(u'"'))
            return false;

        const std::size_t start = m_Place + 1;
        std::size_t end = start;
        for (; end < m_Text.size() && m_Text[end] != u'"' && m_Text[end] != u'\n'; end++)
        {
            if (m_Text[end] == u'\\' && !IsEscape(++end))
                return NoteAt(end - 1, EDialogTextNeed::KnownEscape);
        }
        if (end == m_Text.size() || m_Text[end] != u'"')
            return Note(EDialogTextNeed::ClosingQuote);

        text = {m_Text.substr(start, end - start), 0};
        m_Place = end + 1;
        return true;
    }

    constexpr void SkipBlanks()
    {
        while (m_Place < m_Text.size() && IsBlank(m_Text[m_Place]))
            m_Place++;
    }

    constexpr bool IsTextNext() const { return IsNext(u'"') || IsNext(u'@'); }
    /// A number and a comma.
    constexpr bool IsCornerNext() const
    {
        CDialogTextScanner ahead(*this);
        unsigned int number = 0;
        return ahead.TakeNumber(number, ~0U) && ahead.IsNext(u',');
    }

    constexpr std::size_t GetPlace() const { return m_Place; }
    /// A place in the present line, as a fault tells it.
    constexpr CDialogTextFault At(std::size_t place) const
    {
        return {EDialogTextNeed::Nothing, m_Line, static_cast<int>(place - m_LineStart) + 1, place};
    }

    // Notes what was needed: here, at a place in the present line, or at one told before. Always
    // false, for a return.
    constexpr bool Note(EDialogTextNeed need) { return NoteAt(m_Place, need); }
    constexpr bool NoteAt(std::size_t place, EDialogTextNeed need) { return Note(At(place), need); }
    constexpr bool Note(const CDialogTextFault& place, EDialogTextNeed need)
    {
        if (!m_Fault)
        {
            m_Fault = place;
            m_Fault.m_Need = need;
        }
        return false;
    }

    constexpr const CDialogTextFault& GetFault() const { return m_Fault; }

    static constexpr unsigned int MOST_ID = 0xFFFF; // messages carry ids in 16 bits

private:
    static constexpr bool IsBlank(char16_t unit)
    {
        return unit == u' ' || unit == u'\t' || unit == u'\r';
    }
    static constexpr bool IsWordUnit(char16_t unit) { return IsAlnum(unit) || unit == u'_'; }
    constexpr bool IsNext(char16_t sign) const
    {
        return m_Place < m_Text.size() && m_Text[m_Place] == sign;
    }
    constexpr bool IsEscape(std::size_t place) const
    {
        return place < m_Text.size() &&
               (m_Text[place] == u'n' || m_Text[place] == u'"' || m_Text[place] == u'\\');
    }
    constexpr void SkipComment()
    {
        while (m_Place < m_Text.size() && m_Text[m_Place] != u'\n')
            m_Place++;
    }

    std::u16string_view m_Text;
    std::size_t m_Place = 0;
    std::size_t m_LineStart = 0;
    int m_Line = 1;
    CDialogTextFault m_Fault;
};

} // namespace utility
