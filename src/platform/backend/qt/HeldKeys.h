#pragma once

#include <QtCore/qnamespace.h>

namespace utility
{

/// While it lives, the keys held down are those of the event that is being handled.
class CHeldKeys
{
public:
    explicit CHeldKeys(Qt::KeyboardModifiers modifiers);
    ~CHeldKeys();
    CHeldKeys(const CHeldKeys&) = delete;
    CHeldKeys& operator=(const CHeldKeys&) = delete;

private:
    const Qt::KeyboardModifiers m_Modifiers;
    const Qt::KeyboardModifiers* const m_Outer;
};

} // namespace utility
