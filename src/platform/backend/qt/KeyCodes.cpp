#include "platform/backend/qt/KeyCodes.h"

#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{

namespace
{

struct CKeyRow
{
    int m_Key;
    UINT m_Code;
};

constexpr CKeyRow KEYS[] = {
    {Qt::Key_Backspace, VK_BACK},   {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},    {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},  {Qt::Key_Alt, VK_MENU},      {Qt::Key_Pause, VK_PAUSE},
    {Qt::Key_CapsLock, VK_CAPITAL}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},    {Qt::Key_End, VK_END},       {Qt::Key_Home, VK_HOME},
    {Qt::Key_Left, VK_LEFT},        {Qt::Key_Up, VK_UP},         {Qt::Key_Right, VK_RIGHT},
    {Qt::Key_Down, VK_DOWN},        {Qt::Key_Insert, VK_INSERT}, {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Menu, VK_APPS},        {Qt::Key_Plus, VK_ADD},      {Qt::Key_Minus, VK_SUBTRACT}};

} // namespace

UINT VirtualKeyOf(int key)
{
    const bool isPlain = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                         (key >= Qt::Key_A && key <= Qt::Key_Z);
    if (isPlain)
        return static_cast<UINT>(key); // numbered as their characters on both sides
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return VK_F1 + static_cast<UINT>(key - Qt::Key_F1);
    for (const CKeyRow& row : KEYS)
    {
        if (row.m_Key == key)
            return row.m_Code;
    }
    return 0;
}

WPARAM PointerKeysOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return (buttons & Qt::LeftButton ? MK_LBUTTON : 0) |
           (buttons & Qt::RightButton ? MK_RBUTTON : 0) |
           (buttons & Qt::MiddleButton ? MK_MBUTTON : 0) |
           (modifiers & Qt::ShiftModifier ? MK_SHIFT : 0) |
           (modifiers & Qt::ControlModifier ? MK_CONTROL : 0);
}

} // namespace utility
