#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// How a line stands out from the others.
enum class ELook
{
    Plain,
    Heading,
    Current, // the row on which commands work
    Status
};

/// A line as wide as the screen.
struct CScreenLine
{
    CString m_Text;
    ELook m_Look = ELook::Plain;
};

/// What a screen shows, line by line.
struct CScreenPicture
{
    std::vector<CScreenLine> m_Lines;
    int m_CursorColumn = -1; // in the last line; -1: no cursor
};

/// A key as a terminal gives it.
enum class EKey
{
    None, // nobody pressed one
    Character,
    Up,
    Down,
    Left,
    Right,
    PageUp,
    PageDown,
    Home,
    End,
    Enter,
    Escape,
    Backspace,
    Resize,   // the screen has another size now
    Interrupt // Ctrl-C, or the terminal is gone
};

struct CScreenKey
{
    EKey m_Key = EKey::None;
    char32_t m_Character = 0; // of EKey::Character
};

} // namespace utility
