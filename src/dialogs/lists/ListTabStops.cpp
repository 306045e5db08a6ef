#include "dialogs/lists/ListTabStops.h"

#include "platform/base/String.h"
#include "platform/system/window/UserInterface.h"
#include "platform/ui/controls/ListBox.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int COLUMN_GAP = 16; // pixels
constexpr int UNITS_A_LETTER = 4;
constexpr char16_t LETTERS[] = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

} // namespace

std::vector<int> PlanTabStops(std::span<const CString> rows,
                              const std::function<int(const CString&)>& getWidth)
{
    std::vector<int> widths;
    for (const CString& row : rows)
    {
        int begin = 0;
        for (std::size_t column = 0;; ++column)
        {
            const int end = row.Find(u'\t', begin);
            if (end < 0)
                break; // nothing stands behind the last column
            if (column == widths.size())
                widths.push_back(0);
            widths[column] = std::max(widths[column], getWidth(row.Mid(begin, end - begin)));
            begin = end + 1;
        }
    }

    int stop = 0;
    for (int& width : widths)
        width = stop += width + COLUMN_GAP;
    return widths;
}

void SetListTabStops(CListBox& list)
{
    std::vector<CString> rows(static_cast<std::size_t>(list.GetCount()));
    for (std::size_t row = 0; row < rows.size(); ++row)
        list.GetText(static_cast<int>(row), rows[row]);

    IUserInterface& user = GetUserInterface();
    const auto getWidth = [&user, &list](const CString& text)
    {
        return user.GetTextWidth(text, &list);
    };
    std::vector<int> stops = PlanTabStops(rows, getWidth);
    const CString letters(LETTERS);
    const int letter = std::max(getWidth(letters) / letters.GetLength(), 1);
    for (int& stop : stops)
        stop = (stop * UNITS_A_LETTER + letter - 1) / letter;
    list.SetTabStops(stops);
}

} // namespace utility
