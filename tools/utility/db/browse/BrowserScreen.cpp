#include "utility/db/browse/Browser.h"
#include "utility/output/ScreenWidth.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr const char16_t* HELP[] = {
    u"Up, Down           one row up or down",
    u"Page Up, Page Down one screen; b and the blank, too",
    u"Home, End          the first row, the last row; g and G, too",
    u"Left, Right        one column to the side",
    u"Enter              the row whole, where a column cuts it",
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
    u"q                  quit; Ctrl-C, too",
};

constexpr int LABEL_WIDTH = 16; // of a column's heading before its text
constexpr int LABEL_GAP = 2;

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

/// As much of a text's end as fits: there the typing goes on.
CString EndOf(CString text, int width)
{
    while (!text.IsEmpty() && ScreenWidth(text) > width)
        text = text.Mid(1);
    return text;
}

} // namespace

CScreenPicture CBrowser::Compose()
{
    CScreenPicture picture;
    picture.m_Lines = m_Mode == EMode::Help  ? ComposeHelp()
                      : m_Mode == EMode::Row ? ComposeRow()
                                             : m_View.Compose();
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
    const CString typed = EndOf(prompt + Printable(m_Words), m_Width - 1);
    picture.m_Lines.push_back({PadToWidth(CutToWidth(typed + fault, m_Width), m_Width)});
    picture.m_CursorColumn = ScreenWidth(typed);
    return picture;
}

CString CBrowser::ComposeStatus() const
{
    const CString text =
        Printable(u" " + m_Title + u"  " + (m_Message.IsEmpty() ? ComposePosition() : m_Message));
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

/// A column a line, and more lines for what is longer.
std::vector<CScreenLine> CBrowser::ComposeRow() const
{
    std::vector<CString> lines;
    const std::vector<CBrowseColumn>& columns = m_Rows.GetColumns();
    for (std::size_t column = 0; column < columns.size(); column++)
    {
        if (!columns[column].m_IsShown)
            continue;
        CString label = PadToWidth(CutToWidth(Printable(columns[column].m_Heading), LABEL_WIDTH),
                                   LABEL_WIDTH + LABEL_GAP);
        const CString text = Printable(m_Rows.GetText(m_View.GetCurrent(), column));
        for (const CString& piece : BreakToWidth(text, m_Width - LABEL_WIDTH - LABEL_GAP))
        {
            lines.push_back(label + piece);
            label = CString(u' ', LABEL_WIDTH + LABEL_GAP);
        }
    }
    return ComposePage(u"Row " + Grouped(m_View.GetCurrent() + 1), lines);
}

std::vector<CScreenLine> CBrowser::ComposeHelp() const
{
    return ComposePage(u"Keys", std::vector<CString>(std::begin(HELP), std::end(HELP)));
}

/// As many lines as the rows take, cut where they are too long.
std::vector<CScreenLine> CBrowser::ComposePage(const CString& heading,
                                               const std::vector<CString>& lines) const
{
    std::vector<CScreenLine> page = {
        {PadToWidth(CutToWidth(heading, m_Width), m_Width), ELook::Heading}};
    for (const CString& line : lines)
        page.push_back({PadToWidth(CutToWidth(line, m_Width), m_Width)});
    page.resize(static_cast<std::size_t>(m_View.GetBodyLines()) + 1,
                {PadToWidth(CString(), m_Width)});
    return page;
}

} // namespace utility
