#pragma once

#include "platform/ui/dialogtext/DialogTextLines.h"

#include <algorithm>
#include <iterator>

namespace utility
{

/// Reads the line that begins a dialog:
///
///     dialog ID-or-name "caption" [X,Y] WIDTHxHEIGHT [font "face" HEIGHT] [option ...]
class CDialogLineReader
{
public:
    constexpr explicit CDialogLineReader(CDialogTextScanner& scanner)
        : m_Scanner(scanner),
          m_Parts(scanner)
    {
    }

    /// False at a fault.
    constexpr bool Read(CDialogLine& line)
    {
        if (!TakeKeyword() || !TakeKey(line) || !m_Parts.TakeText(line.m_Caption) ||
            !TakePlace(line))
            return false;
        while (!m_Parts.IsAtLineEnd())
        {
            if (!TakeOption(line))
                return false;
        }
        return true;
    }

private:
    constexpr bool TakeKeyword()
    {
        const std::size_t start = m_Scanner.GetPlace();
        std::u16string_view word;
        return (m_Scanner.TakeWord(word) && word == u"dialog") ||
               m_Scanner.NoteAt(start, EDialogTextNeed::Dialog);
    }

    constexpr bool TakeKey(CDialogLine& line)
    {
        m_Scanner.SkipBlanks();
        line.m_KeyPlace = m_Scanner.GetPlace();
        return m_Scanner.TakeWord(line.m_Name) ||
               m_Parts.TakeId(line.m_Id, EDialogTextNeed::IdOrName);
    }

    constexpr bool TakePlace(CDialogLine& line)
    {
        if (m_Scanner.IsCornerNext())
        {
            line.m_Style &= ~DS_CENTER;
            if (!m_Parts.TakeCorner(line.m_Place))
                return false;
        }
        return m_Parts.TakeSize(line.m_Place);
    }

    constexpr bool TakeOption(CDialogLine& line)
    {
        const std::size_t start = m_Scanner.GetPlace();
        std::u16string_view word;
        if (!m_Scanner.TakeWord(word))
            return m_Scanner.Note(EDialogTextNeed::DialogOption);
        if (word == u"font")
            return TakeFont(line);

        const auto option = std::ranges::find(DIALOG_OPTIONS, word, &CDialogOption::m_Word);
        if (option == std::end(DIALOG_OPTIONS))
            return m_Scanner.NoteAt(start, EDialogTextNeed::DialogOption);
        line.m_Style = (line.m_Style & ~option->m_Clear) | option->m_Set;
        line.m_ExStyle |= option->m_SetEx;
        return true;
    }

    constexpr bool TakeFont(CDialogLine& line)
    {
        unsigned int height = 0;
        if (!m_Parts.TakeText(line.m_FontFace) || !m_Parts.TakeNumber(height, MOST_POINTS))
            return false;
        line.m_FontHeight = static_cast<int>(height);
        line.m_Style |= DS_SETFONT;
        return true;
    }

    static constexpr unsigned int MOST_POINTS = 127;

    CDialogTextScanner& m_Scanner;
    CDialogTextParts m_Parts;
};

} // namespace utility
