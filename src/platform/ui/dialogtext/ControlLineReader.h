#pragma once

#include "platform/ui/dialogtext/DialogTextLines.h"

#include <algorithm>
#include <iterator>

namespace utility
{

/// Reads a control's line behind its first word:
///
///     KIND [ID] ["text"] X,Y WIDTHxHEIGHT [name "accessible name"] [bitmap ID] [option ...]
class CControlLineReader
{
public:
    constexpr explicit CControlLineReader(CDialogTextScanner& scanner)
        : m_Scanner(scanner),
          m_Parts(scanner)
    {
    }

    /// False at a fault. A control that takes keys without text, name or a label before it is one:
    /// who cannot see it could not tell what it is.
    constexpr bool Read(const CControlWord& kind, std::size_t kindPlace, bool isLabelBefore,
                        CControlLine& line)
    {
        Begin(kind, line);
        if (!TakeId(line) || !TakeOwnText(kind, line) || !m_Parts.TakeCorner(line.m_Place) ||
            !m_Parts.TakeSize(line.m_Place))
            return false;
        while (!m_Parts.IsAtLineEnd())
        {
            if (!TakeOption(line))
                return false;
        }
        return HasName(line, isLabelBefore) ||
               m_Scanner.NoteAt(kindPlace, EDialogTextNeed::AccessibleName);
    }

private:
    static constexpr void Begin(const CControlWord& kind, CControlLine& line)
    {
        line = {};
        line.m_ClassName = kind.m_ClassName;
        line.m_IsLabel = kind.m_Word == u"text";
        line.m_Style |= kind.m_Style | (kind.m_TakesKeys ? WS_TABSTOP : 0);
    }

    static constexpr bool HasName(const CControlLine& line, bool isLabelBefore)
    {
        return (line.m_Style & WS_TABSTOP) == 0 || isLabelBefore || !line.m_Text.IsEmpty() ||
               !line.m_AccessibleName.IsEmpty();
    }

    constexpr bool TakeId(CControlLine& line)
    {
        m_Scanner.SkipBlanks();
        line.m_IdPlace = m_Scanner.GetPlace();
        // A label or a line, of which nobody asks, goes without.
        if (m_Scanner.IsTextNext() || m_Scanner.IsCornerNext())
            return true;
        return m_Parts.TakeId(line.m_Id, EDialogTextNeed::Id);
    }

    constexpr bool TakeOwnText(const CControlWord& kind, CControlLine& line)
    {
        if (!kind.m_HasText)
            return true;
        if (!kind.m_ClassName.empty())
            return m_Parts.TakeText(line.m_Text);

        CTemplateText className;
        m_Scanner.SkipBlanks();
        const std::size_t start = m_Scanner.GetPlace();
        if (!m_Parts.TakeText(className))
            return false;
        if (className.m_Quoted.empty())
            return m_Scanner.NoteAt(start, EDialogTextNeed::ClassName);
        line.m_ClassName = className.m_Quoted;
        return true;
    }

    constexpr bool TakeOption(CControlLine& line)
    {
        const std::size_t start = m_Scanner.GetPlace();
        std::u16string_view word;
        if (!m_Scanner.TakeWord(word))
            return m_Scanner.Note(EDialogTextNeed::ControlOption);
        if (word == u"name")
            return m_Parts.TakeText(line.m_AccessibleName);
        if (word == u"bitmap" && line.m_ClassName == u"Static")
            return m_Parts.TakeId(line.m_Bitmap, EDialogTextNeed::Id);

        for (const CControlOption& option : CONTROL_OPTIONS)
        {
            if (option.m_Word == word &&
                (option.m_ClassName.empty() || option.m_ClassName == line.m_ClassName))
            {
                line.m_Style = (line.m_Style & ~option.m_Clear) | option.m_Set;
                return true;
            }
        }
        return m_Scanner.NoteAt(start, EDialogTextNeed::ControlOption);
    }

    CDialogTextScanner& m_Scanner;
    CDialogTextParts m_Parts;
};

} // namespace utility
