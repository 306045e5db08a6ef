#pragma once

#include "utility/db/browse/ScreenPicture.h"

#include <string>

namespace utility
{

/// The whole terminal as a screen, from construction to destruction; then it is as it was before.
///
/// Ctrl-C comes as a key. A second one, pressed while nobody asks for keys, ends the process; the
/// terminal is put back then, too. One object at a time.
class CTerminalScreen
{
public:
    CTerminalScreen();
    ~CTerminalScreen();
    CTerminalScreen(const CTerminalScreen&) = delete;
    CTerminalScreen& operator=(const CTerminalScreen&) = delete;

    /// Whether both the input and the output of the process are a terminal.
    static bool IsThere();

    /// False if nothing is known of a terminal of this kind (TERM), or if it shows mere lines.
    bool IsOpen() const { return m_Screen != nullptr; }

    int GetLines() const;
    int GetWidth() const;
    void Draw(const CScreenPicture& picture);

    /// The next key; EKey::None at once if none was pressed and nobody is to wait for it.
    CScreenKey ReadKey(bool waits);

private:
    CScreenKey TakeKey();

    void* m_Screen = nullptr; // a SCREEN of the terminal library
    std::string m_Locale;     // of characters, as it was before
};

} // namespace utility
