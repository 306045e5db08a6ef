#include "utility/db/browse/Browser.h"

namespace utility
{

namespace
{

constexpr int MAX_WORDS = 1000; // units; more is no condition but a slip of the clipboard

void AppendCharacter(CString& text, char32_t character)
{
    if (character < 0x10000)
    {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

void RemoveLastCharacter(CString& text)
{
    const int length = text.GetLength();
    if (length == 0)
        return;
    const char16_t last = text[length - 1];
    const bool isPair = last >= 0xDC00 && last <= 0xDFFF && length > 1;
    text = text.Left(length - (isPair ? 2 : 1));
}

} // namespace

CBrowser::CBrowser(CBrowseRows& rows, const CString& title)
    : m_Rows(rows),
      m_View(rows),
      m_Title(title)
{
}

void CBrowser::Resize(int lines, int width)
{
    m_Lines = lines;
    m_Width = width;
    m_View.Resize(lines - 1, width); // the last one is the status
}

void CBrowser::HandleKey(const CScreenKey& key)
{
    if (key.m_Key == EKey::Interrupt)
        m_IsDone = true;
    if (key.m_Key == EKey::None || key.m_Key == EKey::Resize || m_IsDone)
        return;
    m_Message.Empty();
    m_IsEndDue = false;
    m_FindStep = 0;
    switch (m_Mode)
    {
    case EMode::Rows:
        return HandleRowKey(key);
    case EMode::Row:
    case EMode::Help:
        m_Mode = EMode::Rows;
        return;
    default:
        return HandlePromptKey(key);
    }
}

void CBrowser::HandleRowKey(const CScreenKey& key)
{
    switch (key.m_Key)
    {
    case EKey::Up:
        return MoveBy(-1);
    case EKey::Down:
        return MoveBy(1);
    case EKey::PageUp:
        return MoveBy(-m_View.GetBodyLines());
    case EKey::PageDown:
        return MoveBy(m_View.GetBodyLines());
    case EKey::Left:
        return m_View.MoveColumns(-1);
    case EKey::Right:
        return m_View.MoveColumns(1);
    case EKey::Home:
        return m_View.MoveTo(0);
    case EKey::End:
        m_IsEndDue = true;
        return;
    case EKey::Enter:
        if (m_Rows.GetCount() > 0)
            m_Mode = EMode::Row;
        return;
    case EKey::Escape:
        if (m_Filter)
            Filter(CString());
        return;
    case EKey::Character:
        return HandleCharacter(key.m_Character);
    default:
        return;
    }
}

void CBrowser::HandleCharacter(char32_t character)
{
    switch (character)
    {
    case U'q':
        m_IsDone = true;
        return;
    case U'?':
        m_Mode = EMode::Help;
        return;
    case U'/':
        return Ask(EMode::Filter);
    case U'f':
        return Ask(EMode::Find);
    case U's':
        return Ask(EMode::Sort);
    case U'n':
        return StartFind(1);
    case U'N':
        return StartFind(-1);
    case U' ':
        return MoveBy(m_View.GetBodyLines());
    case U'b':
        return MoveBy(-m_View.GetBodyLines());
    case U'g':
        return m_View.MoveTo(0);
    case U'G':
        m_IsEndDue = true;
        return;
    default:
        m_Message = u"? shows what the keys do";
    }
}

void CBrowser::MoveBy(int rows)
{
    m_View.MoveTo(m_View.GetCurrent() + rows);
}

void CBrowser::Ask(EMode mode)
{
    m_Mode = mode;
    m_Words.Empty();
}

void CBrowser::HandlePromptKey(const CScreenKey& key)
{
    switch (key.m_Key)
    {
    case EKey::Character:
        if (m_Words.GetLength() < MAX_WORDS)
            AppendCharacter(m_Words, key.m_Character);
        return;
    case EKey::Backspace:
        if (m_Words.IsEmpty())
            m_Mode = EMode::Rows;
        return RemoveLastCharacter(m_Words);
    case EKey::Escape:
        m_Mode = EMode::Rows;
        return;
    case EKey::Enter:
        return TakeWords();
    default:
        return;
    }
}

/// The words stay to be mended if something is wrong with them.
void CBrowser::TakeWords()
{
    const bool isSound = m_Mode == EMode::Filter ? Filter(m_Words)
                         : m_Mode == EMode::Sort ? Sort(m_Words)
                                                 : Find(m_Words);
    if (isSound)
        m_Mode = EMode::Rows;
}

} // namespace utility
