#pragma once

#include "platform/ui/dialogtext/DialogTextReader.h"

namespace utility
{

/// The first fault of a text of dialog templates, or none.
constexpr CDialogTextFault CheckDialogText(std::u16string_view text)
{
    CDialogTextReader reader(text);
    CDialogLine dialog;
    CControlLine control;
    while (reader.ReadDialog(dialog))
    {
        while (reader.ReadControl(control))
        {
        }
    }
    return reader.GetFault();
}

/// A text of dialog templates in a source, checked when it is compiled: a wrong one is no program.
///
/// The compiler's message names the call DialogTextIsWrong with line and column within the text.
class CDialogText
{
public:
    consteval CDialogText(const char16_t* text) : m_Text(text)
    {
        if (const CDialogTextFault fault = CheckDialogText(m_Text))
            Refuse(fault.m_Line, fault.m_Column, fault.m_Need);
    }

    constexpr std::u16string_view View() const { return m_Text; }

private:
    /// Declared only: a call that the compiler cannot do is the error.
    static void DialogTextIsWrong(int line, int column, EDialogTextNeed needed);
    static constexpr void Refuse(int line, int column, EDialogTextNeed needed)
    {
        if (needed != EDialogTextNeed::Nothing)
            DialogTextIsWrong(line, column, needed);
    }

    std::u16string_view m_Text;
};

} // namespace utility
