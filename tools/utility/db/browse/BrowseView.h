#pragma once

#include "utility/db/browse/BrowseRows.h"
#include "utility/db/browse/ScreenPicture.h"

namespace utility
{

/// The part of the rows that is on the screen: headings above, one row a line, one of them the
/// current one.
///
/// Columns grow with what they showed, up to a limit at which texts are cut. Only rows that are
/// known are shown: see GetWantedCount.
class CBrowseView
{
public:
    explicit CBrowseView(CBrowseRows& rows);

    /// Of the lines one is for the headings, the others for rows.
    void Resize(int lines, int width);

    /// The rows that must be known to fill the screen.
    int GetWantedCount() const { return m_Top + GetBodyLines(); }
    int GetBodyLines() const { return m_Lines > 1 ? m_Lines - 1 : 1; }

    int GetCurrent() const { return m_Current; }
    /// To the nearest row that is known.
    void MoveTo(int row);
    /// By so many columns; always one is shown.
    void MoveColumns(int columns);

    std::vector<CScreenLine> Compose();

private:
    /// The texts of one column from the heading down.
    std::vector<CString> ReadColumn(std::size_t column);

    CBrowseRows& m_Rows;
    std::vector<std::size_t> m_Shown; // the columns of the rows that are shown
    std::vector<int> m_Widths;        // one a shown column
    int m_Lines = 2;
    int m_Width = 1;
    int m_Top = 0; // the row in the first line
    int m_Current = 0;
    std::size_t m_Left = 0; // the shown column that stands first
};

} // namespace utility
