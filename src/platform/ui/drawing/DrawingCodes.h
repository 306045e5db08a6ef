#pragma once

#include "platform/base/Types.h"

/// Numbers that drawing contexts take.
namespace utility
{

// How DrawText lays out: a sum
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004; // with DT_SINGLELINE
constexpr UINT DT_BOTTOM = 0x0008;  // with DT_SINGLELINE
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800; // "&" is a character like others
constexpr UINT DT_END_ELLIPSIS = 0x8000;

// The ground of texts
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

// Tools that are always there
constexpr int WHITE_BRUSH = 0;
constexpr int BLACK_BRUSH = 4;
constexpr int HOLLOW_BRUSH = 5;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;

// How BitBlt joins source and target
constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD SRCPAINT = 0x00EE0086;  // or
constexpr DWORD SRCAND = 0x008800C6;    // and
constexpr DWORD SRCINVERT = 0x00660046; // exclusive or

// What GetDeviceCaps tells
constexpr int HORZRES = 8;
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;

} // namespace utility
