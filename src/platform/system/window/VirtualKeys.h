#pragma once

#include "platform/base/Types.h"

/// Numbers of keys, with WM_KEYDOWN and its kin; letters and digits are their capital characters.
namespace utility
{

constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_SHIFT = 0x10;
constexpr UINT VK_CONTROL = 0x11;
constexpr UINT VK_MENU = 0x12; // the Alt key
constexpr UINT VK_PAUSE = 0x13;
constexpr UINT VK_CAPITAL = 0x14;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_INSERT = 0x2D;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_APPS = 0x5D;
constexpr UINT VK_ADD = 0x6B;
constexpr UINT VK_SUBTRACT = 0x6D;
constexpr UINT VK_F1 = 0x70; // the others follow, up to 24

} // namespace utility
