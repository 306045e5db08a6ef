#include "Browser.h"

#include "database/FilterOperators.h"
#include "platform/system/Clock.h"

#include "ScreenWidth.h"
#include "ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int FIND_STEP_ROWS = 2000; // between two looks at the keys

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

// Keys

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
    case EKey::Enter:
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
        return AppendCharacter(m_Words, key.m_Character);
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

// Filter, order, search

bool CBrowser::Filter(const CString& words)
{
    CBrowseTest test;
    if (!ReadBrowseTest(words, m_Rows.GetColumns(), test, m_Message))
        return false;
    m_Filter = test.m_Words.IsEmpty() ? std::nullopt : std::optional(test);
    RestartRows();
    return true;
}

bool CBrowser::Sort(const CString& words)
{
    CString name = words;
    name.Trim();
    if (name.IsEmpty())
    {
        m_Order.reset();
        RestartRows();
        return true;
    }
    int column = FindBrowseColumn(m_Rows.GetColumns(), name);
    const bool isDescending = column < 0 && name[0] == u'-';
    if (isDescending)
        column = FindBrowseColumn(m_Rows.GetColumns(), name.Mid(1));
    if (column < 0)
    {
        m_Message = u"there is no column '" + name + u"'";
        return false;
    }
    m_Order = COrder{static_cast<std::size_t>(column), !isDescending};
    RestartRows();
    return true;
}

bool CBrowser::Find(const CString& words)
{
    CBrowseTest test;
    if (!ReadBrowseTest(words, m_Rows.GetColumns(), test, m_Message))
        return false;
    if (!test.m_Words.IsEmpty())
        m_Sought = test;
    StartFind(1);
    return true;
}

void CBrowser::StartFind(int step)
{
    if (!m_Sought)
    {
        m_Message = u"f asks what to find";
        return;
    }
    m_FindStep = step;
    m_FindRow = m_View.GetCurrent() + step;
}

/// Tries some rows that are known.
void CBrowser::FindOn()
{
    for (int tries = 0; tries < FIND_STEP_ROWS; tries++, m_FindRow += m_FindStep)
    {
        const bool isKnown = m_FindRow >= 0 && m_FindRow < m_Rows.GetCount();
        const bool isFound = isKnown && m_Rows.DoesMatch(m_FindRow, *m_Sought);
        if (isFound)
            m_View.MoveTo(m_FindRow);
        else if (!isKnown && (m_FindRow < 0 || m_Rows.IsComplete()))
            m_Message = u"no other row matches " + m_Sought->m_Words;
        else if (isKnown)
            continue;
        else
            return; // it may still come
        m_FindStep = 0;
        return;
    }
}

void CBrowser::RestartRows()
{
    m_IsFilterDue = true;
    m_IsSortDue = m_Order.has_value();
}

// Work

bool CBrowser::Work(DWORD milliseconds)
{
    if (m_IsFilterDue)
    {
        m_IsFilterDue = false;
        m_Rows.Filter(m_Filter ? &*m_Filter : nullptr);
        m_View.MoveTo(0);
        return true;
    }
    const bool isMoreThere = m_Rows.FetchAhead(milliseconds);
    if (!isMoreThere)
        FinishRows();
    if (m_FindStep != 0)
        FindOn();
    return isMoreThere || m_FindStep != 0 || !m_Rows.IsComplete();
}

/// What can only be done once all rows are known.
void CBrowser::FinishRows()
{
    if (m_IsSortDue)
    {
        m_IsSortDue = false;
        m_Rows.Sort(m_Order->m_Column, m_Order->m_IsAscending);
        m_View.MoveTo(0);
        return;
    }
    if (m_IsEndDue)
        m_View.MoveTo(m_Rows.GetCount() - 1);
    m_IsEndDue = false;
}

bool CBrowser::IsWaiting() const
{
    return m_IsFilterDue || m_IsSortDue || m_IsEndDue || m_FindStep != 0 ||
           (!m_Rows.IsComplete() && m_Rows.GetCount() < m_View.GetWantedCount());
}

} // namespace utility
