#include "platform/ui/InputState.h"

#include "platform/backend/qt/HeldKeys.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/VirtualKeys.h"

#include <QCursor>
#include <QGuiApplication>

namespace utility
{

namespace
{

constinit const Qt::KeyboardModifiers* modifiersOfEvent = nullptr;

} // namespace

CHeldKeys::CHeldKeys(Qt::KeyboardModifiers modifiers)
    : m_Modifiers(modifiers),
      m_Outer(std::exchange(modifiersOfEvent, &m_Modifiers))
{
}

CHeldKeys::~CHeldKeys()
{
    modifiersOfEvent = m_Outer;
}

bool IsKeyDown(UINT key)
{
    const Qt::KeyboardModifiers held =
        modifiersOfEvent ? *modifiersOfEvent : QGuiApplication::queryKeyboardModifiers();
    switch (key)
    {
    case VK_SHIFT:
        return held & Qt::ShiftModifier;
    case VK_CONTROL:
        return held & Qt::ControlModifier;
    case VK_MENU:
        return held & Qt::AltModifier;
    default:
        return false;
    }
}

std::int16_t GetKeyState(UINT key)
{
    return IsKeyDown(key) ? INT16_MIN : 0;
}

CPoint GetCursorPos()
{
    return ToPoint(QCursor::pos());
}

bool GetCursorPos(CPoint* point)
{
    *point = GetCursorPos();
    return true;
}

bool SetCursorPos(int x, int y)
{
    QCursor::setPos(x, y);
    return QCursor::pos() == QPoint(x, y);
}

} // namespace utility
