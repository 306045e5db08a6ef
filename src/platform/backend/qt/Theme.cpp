#include "platform/backend/qt/Values.h"
#include "platform/ui/SystemMetrics.h"

#include <QGuiApplication>
#include <QPalette>

namespace utility
{

namespace
{

struct CColourRow
{
    int m_Index;
    QPalette::ColorGroup m_Group;
    QPalette::ColorRole m_Role;
};

constexpr CColourRow COLOURS[] = {
    {COLOR_INACTIVECAPTION, QPalette::Inactive, QPalette::Highlight},
    {COLOR_MENU, QPalette::Active, QPalette::Window},
    {COLOR_WINDOW, QPalette::Active, QPalette::Base},
    {COLOR_MENUTEXT, QPalette::Active, QPalette::WindowText},
    {COLOR_WINDOWTEXT, QPalette::Active, QPalette::Text},
    {COLOR_HIGHLIGHT, QPalette::Active, QPalette::Highlight},
    {COLOR_HIGHLIGHTTEXT, QPalette::Active, QPalette::HighlightedText},
    {COLOR_BTNFACE, QPalette::Active, QPalette::Window},
    {COLOR_BTNSHADOW, QPalette::Active, QPalette::Dark},
    {COLOR_GRAYTEXT, QPalette::Disabled, QPalette::WindowText},
    {COLOR_BTNTEXT, QPalette::Active, QPalette::WindowText},
};

} // namespace

COLORREF GetSysColor(int index)
{
    for (const CColourRow& row : COLOURS)
    {
        if (row.m_Index == index)
            return ToColour(QGuiApplication::palette().color(row.m_Group, row.m_Role));
    }
    return 0;
}

} // namespace utility
