#include "utility/db/browse/TerminalScreen.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cwchar>
#include <langinfo.h>
#include <poll.h>
#include <unistd.h>

#define NCURSES_NOMACROS // its names are common words
#include <ncurses.h>
#include <term.h>

namespace utility
{

namespace
{

constexpr int ESCAPE_DELAY = 25; // milliseconds in which a key's bytes follow each other
constexpr short CURRENT_COLOURS = 1;

volatile std::sig_atomic_t g_IsInterrupted = 0;
struct sigaction g_LibraryInterrupt; // puts the terminal back and ends the process

extern "C" void OnScreenInterrupt(int)
{
    g_IsInterrupted = 1;
    sigaction(SIGINT, &g_LibraryInterrupt, nullptr);
}

constexpr struct
{
    int m_Code;
    EKey m_Key;
} FUNCTION_KEYS[] = {
    {KEY_UP, EKey::Up},
    {KEY_DOWN, EKey::Down},
    {KEY_LEFT, EKey::Left},
    {KEY_RIGHT, EKey::Right},
    {KEY_PPAGE, EKey::PageUp},
    {KEY_NPAGE, EKey::PageDown},
    {KEY_HOME, EKey::Home},
    {KEY_END, EKey::End},
    {KEY_ENTER, EKey::Enter},
    {KEY_RESIZE, EKey::Resize},
    {KEY_BACKSPACE, EKey::Backspace},
};

EKey FindFunctionKey(wint_t code)
{
    for (const auto& row : FUNCTION_KEYS)
        if (static_cast<wint_t>(row.m_Code) == code)
            return row.m_Key;
    return EKey::None;
}

CScreenKey KeyOfCharacter(wint_t character)
{
    switch (character)
    {
    case L'\n':
    case L'\r':
        return {EKey::Enter};
    case 0x1B:
        return {EKey::Escape};
    case 0x08:
    case 0x7F:
        return {EKey::Backspace};
    default:
        return character < L' ' ? CScreenKey()
                                : CScreenKey{EKey::Character, static_cast<char32_t>(character)};
    }
}

/// A text of whole characters: half a pair cannot be shown.
std::wstring WideText(const CString& text)
{
    std::wstring wide;
    const std::u16string_view units = text.View();
    for (std::size_t place = 0; place < units.size(); place++)
    {
        const char16_t unit = units[place];
        const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
        const bool isPair = isSurrogate && unit <= 0xDBFF && place + 1 < units.size() &&
                            units[place + 1] >= 0xDC00 && units[place + 1] <= 0xDFFF;
        if (isPair)
            wide +=
                static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (units[++place] - 0xDC00));
        else
            wide += isSurrogate ? L'\xFFFD' : static_cast<wchar_t>(unit);
    }
    return wide;
}

/// Whether a text can be put anywhere; on a printer or a mere pipe for lines it cannot.
bool CanPlaceCursor()
{
    int error = 0;
    if (setupterm(nullptr, STDOUT_FILENO, &error) != OK)
        return false;
    const bool canPlace = tigetstr("cup") != nullptr;
    del_curterm(cur_term); // the screen makes its own
    return canPlace;
}

attr_t AttributesOf(ELook look)
{
    switch (look)
    {
    case ELook::Heading:
        return A_BOLD | A_UNDERLINE;
    case ELook::Current:
        return has_colors() ? static_cast<attr_t>(COLOR_PAIR(CURRENT_COLOURS)) : A_REVERSE | A_BOLD;
    case ELook::Status:
        return A_REVERSE;
    case ELook::Plain:
        break;
    }
    return A_NORMAL;
}

} // namespace

// The texts are UTF-8 whatever the user's locale is, as all that the tool prints.
CTerminalScreen::CTerminalScreen() : m_Locale(setlocale(LC_CTYPE, nullptr))
{
    setlocale(LC_CTYPE, "");
    if (std::string(nl_langinfo(CODESET)) != "UTF-8")
        setlocale(LC_CTYPE, "C.UTF-8");
    m_Screen = CanPlaceCursor() ? newterm(nullptr, stdout, stdin) : nullptr;
    if (!m_Screen)
        return;
    struct sigaction interrupt = {};
    interrupt.sa_handler = OnScreenInterrupt;
    sigaction(SIGINT, nullptr, &g_LibraryInterrupt);
    sigaction(SIGINT, &interrupt, nullptr);
    cbreak();
    noecho();
    nodelay(stdscr, TRUE);
    keypad(stdscr, TRUE);
    set_escdelay(ESCAPE_DELAY);
    if (has_colors())
    {
        start_color();
        use_default_colors();
        init_pair(CURRENT_COLOURS, COLOR_BLACK, COLOR_CYAN);
    }
}

CTerminalScreen::~CTerminalScreen()
{
    if (m_Screen)
    {
        endwin();
        delscreen(static_cast<SCREEN*>(m_Screen));
        std::signal(SIGINT, SIG_DFL);
    }
    setlocale(LC_CTYPE, m_Locale.c_str());
}

bool CTerminalScreen::IsThere()
{
    return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO);
}

int CTerminalScreen::GetLines() const
{
    return getmaxy(stdscr);
}

int CTerminalScreen::GetWidth() const
{
    return getmaxx(stdscr);
}

void CTerminalScreen::Draw(const CScreenPicture& picture)
{
    erase();
    int place = 0;
    for (const CScreenLine& line : picture.m_Lines)
    {
        attrset(static_cast<int>(AttributesOf(line.m_Look)));
        mvaddwstr(place++, 0, WideText(line.m_Text).c_str());
    }
    curs_set(picture.m_CursorColumn < 0 ? 0 : 1);
    move(place - 1, std::max(picture.m_CursorColumn, 0));
    refresh();
}

CScreenKey CTerminalScreen::ReadKey(bool waits)
{
    CScreenKey key = TakeKey();
    while (waits && key.m_Key == EKey::None)
    {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        const bool isGone = poll(&input, 1, -1) > 0 && (input.revents & POLLIN) == 0;
        key = isGone ? CScreenKey{EKey::Interrupt} : TakeKey();
    }
    return key;
}

CScreenKey CTerminalScreen::TakeKey()
{
    if (g_IsInterrupted)
        return {EKey::Interrupt};
    wint_t code = 0;
    switch (get_wch(&code))
    {
    case OK:
        return KeyOfCharacter(code);
    case KEY_CODE_YES:
        return {FindFunctionKey(code)};
    default:
        return {g_IsInterrupted ? EKey::Interrupt : EKey::None};
    }
}

} // namespace utility
