#include "Browser.h"
#include "ScreenWidth.h"

namespace utility
{

namespace
{

constexpr const char16_t* HELP[] = {
    u"Up, Down           one row up or down",
    u"Page Up, Page Down one screen; b and the blank, too",
    u"Home, End          the first row, the last row; g and G, too",
    u"Left, Right        one column to the side",
    u"",
    u"/                  show only rows that pass a test:",
    u"                       Value between 4k7 10k",
    u"                       Stock >= 100",
    u"                       Name begins R06",
    u"                       R06               a text in any column",
    u"                   The operators are those of 'utility db query', = != < <= > >= and begins.",
    u"Esc                show all rows again",
    u"s                  sort by a column; - before it sorts downwards, nothing ends the order",
    u"f                  find the next row that passes a test, as for /",
    u"n, N               find the next one, the one before",
    u"",
    u"?                  this help",
    u"q                  quit",
};

constexpr char16_t KEYS[] = u"  ? help  q quit ";

/// A number with a comma before each three digits.
CString Grouped(int number)
{
    CString text;
    text.Format(u"%d", number);
    for (int place = text.GetLength() - 3; place > 0; place -= 3)
        text.Insert(place, u',');
    return text;
}

} // namespace

CScreenPicture CBrowser::Compose()
{
    CScreenPicture picture;
    picture.m_Lines = m_Mode == EMode::Help ? ComposeHelp() : m_View.Compose();
    CString prompt;
    if (m_Mode == EMode::Filter)
        prompt = u"/";
    else if (m_Mode == EMode::Find)
        prompt = u"find: ";
    else if (m_Mode == EMode::Sort)
        prompt = u"sort by: ";
    if (prompt.IsEmpty())
    {
        picture.m_Lines.push_back({ComposeStatus(), ELook::Status});
        return picture;
    }
    const CString fault = m_Message.IsEmpty() ? CString() : u"    " + m_Message;
    const CString typed = CutToWidth(prompt + m_Words, m_Width - 1);
    picture.m_Lines.push_back({PadToWidth(CutToWidth(typed + fault, m_Width), m_Width)});
    picture.m_CursorColumn = ScreenWidth(typed);
    return picture;
}

CString CBrowser::ComposeStatus() const
{
    CString text = u" " + m_Title + u"  ";
    text += m_Message.IsEmpty() ? ComposePosition() : m_Message;
    const int room = m_Width - ScreenWidth(KEYS);
    return room < ScreenWidth(text) ? PadToWidth(CutToWidth(text, m_Width), m_Width)
                                    : PadToWidth(text, room) + KEYS;
}

/// "row 1 of 52,000 of 1,000,000+  /Value between 4k7 10k  sorted by Value"
CString CBrowser::ComposePosition() const
{
    const bool isKnown = m_Rows.GetCount() > 0 && !m_IsFilterDue;
    CString text =
        isKnown ? u"row " + Grouped(m_View.GetCurrent() + 1) + u" of " + Grouped(m_Rows.GetCount())
                : ComposeEmpty();
    if (isKnown && m_Filter)
        text += u" of " + Grouped(m_Rows.GetReadCount());
    if (isKnown && !m_Rows.IsComplete())
        text += u"+";
    if (m_Filter)
        text += u"  /" + m_Filter->m_Words;
    if (m_Order)
        text += (m_IsSortDue ? u"  sorting by " : u"  sorted by ") +
                CString(m_Order->m_IsAscending ? u"" : u"-") +
                m_Rows.GetColumns()[m_Order->m_Column].m_Heading;
    if (m_FindStep != 0)
        text += u"  looking for " + m_Sought->m_Words;
    return text;
}

CString CBrowser::ComposeEmpty() const
{
    if (m_IsFilterDue || !m_Rows.IsComplete())
        return u"looking for rows";
    if (!m_Filter)
        return u"no rows";
    const int column = m_Filter->m_Column;
    if (column < 0)
        return u"no row matches";
    const CBrowseColumn& tested = m_Rows.GetColumns()[static_cast<std::size_t>(column)];
    if (tested.m_IsNumeric || !LacksRule(m_Filter->m_Test, tested.m_ParseType, true))
        return u"no row matches";
    return u"no row matches, and '" + tested.m_Heading + u"' has no rule: utility db rules";
}

std::vector<CScreenLine> CBrowser::ComposeHelp() const
{
    std::vector<CScreenLine> lines = {{PadToWidth(u"Keys", m_Width), ELook::Heading}};
    for (const char16_t* line : HELP)
        lines.push_back({PadToWidth(CutToWidth(line, m_Width), m_Width)});
    lines.resize(static_cast<std::size_t>(m_View.GetBodyLines()) + 1,
                 {PadToWidth(CString(), m_Width)});
    return lines;
}

} // namespace utility
