#pragma once

#include "platform/base/Types.h"
#include "platform/ui/dialogtext/DialogTextScanner.h"
#include "platform/ui/dialogtext/DialogTextWords.h"

#include <cstddef>
#include <string_view>

namespace utility
{

/// A place in dialog units.
struct CUnitPlace
{
    int m_X = 0;
    int m_Y = 0;
    int m_Width = 0;
    int m_Height = 0;
};

/// The first line of a dialog. Its texts are views into the text that was read.
struct CDialogLine
{
    UINT m_Id = 0; // 0: the dialog goes by its name
    std::u16string_view m_Name;
    CTemplateText m_Caption;
    CUnitPlace m_Place;
    DWORD m_Style = PLAIN_DIALOG_STYLE;
    DWORD m_ExStyle = 0;
    CTemplateText m_FontFace;
    int m_FontHeight = 0;       // 0: the font of all dialogs
    std::size_t m_Start = 0;    // where the line begins
    std::size_t m_KeyPlace = 0; // where its id or name stands
};

/// A control's line. Its texts are views into the text that was read.
struct CControlLine
{
    UINT m_Id = 0; // 0: nobody asks for it
    std::u16string_view m_ClassName;
    CTemplateText m_Text;
    CTemplateText m_AccessibleName;
    bool m_IsLabel = false; // may name the control behind it
    CUnitPlace m_Place;
    DWORD m_Style = WS_CHILD | WS_VISIBLE;
    UINT m_Bitmap = 0; // 0: none
    std::size_t m_IdPlace = 0;
};

/// What the lines of dialogs and of controls are made of. Each notes what it needed and did not
/// find.
class CDialogTextParts
{
public:
    constexpr explicit CDialogTextParts(CDialogTextScanner& scanner) : m_Scanner(scanner) {}

    constexpr bool IsAtLineEnd()
    {
        m_Scanner.SkipBlanks();
        return m_Scanner.IsAtLineEnd();
    }

    constexpr bool TakeText(CTemplateText& text)
    {
        return m_Scanner.TakeText(text) || m_Scanner.Note(EDialogTextNeed::QuotedText);
    }

    constexpr bool TakeNumber(unsigned int& number, unsigned int most)
    {
        return m_Scanner.TakeNumber(number, most) || m_Scanner.Note(EDialogTextNeed::Number);
    }

    /// From 1, as 16 bits hold it.
    constexpr bool TakeId(UINT& id, EDialogTextNeed need)
    {
        m_Scanner.SkipBlanks();
        const std::size_t start = m_Scanner.GetPlace();
        UINT taken = 0;
        if (!m_Scanner.TakeNumber(taken, CDialogTextScanner::MOST_ID) || taken == 0)
            return m_Scanner.NoteAt(start, need);
        id = taken;
        return true;
    }

    /// X,Y
    constexpr bool TakeCorner(CUnitPlace& place)
    {
        m_Scanner.SkipBlanks();
        const std::size_t start = m_Scanner.GetPlace();
        unsigned int x = 0;
        unsigned int y = 0;
        if (!m_Scanner.TakeNumber(x, MOST_UNITS) || !m_Scanner.TakeSign(u',') ||
            !m_Scanner.TakeNumber(y, MOST_UNITS))
            return m_Scanner.NoteAt(start, EDialogTextNeed::Corner);
        place.m_X = static_cast<int>(x);
        place.m_Y = static_cast<int>(y);
        return true;
    }

    /// WIDTHxHEIGHT, each at least 1.
    constexpr bool TakeSize(CUnitPlace& place)
    {
        m_Scanner.SkipBlanks();
        const std::size_t start = m_Scanner.GetPlace();
        unsigned int width = 0;
        unsigned int height = 0;
        if (!m_Scanner.TakeNumber(width, MOST_UNITS) || !m_Scanner.TakeSign(u'x') ||
            !m_Scanner.TakeNumber(height, MOST_UNITS) || width == 0 || height == 0)
            return m_Scanner.NoteAt(start, EDialogTextNeed::Size);
        place.m_Width = static_cast<int>(width);
        place.m_Height = static_cast<int>(height);
        return true;
    }

    static constexpr unsigned int MOST_UNITS = 0x7FFF; // coordinates are 16 bits with a sign

private:
    CDialogTextScanner& m_Scanner;
};

} // namespace utility
