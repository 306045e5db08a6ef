#pragma once

#include <cstdint>

/// Plain types of the vocabulary, with the same widths on every system, and its opaque handles.
///
/// A handle is a pointer to an incomplete type of ours, so that two kinds cannot be mixed up; it
/// never shows a descriptor or a foreign pointer.
namespace utility
{

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using BOOL = int; // 0 for no
using LONG = std::int32_t;
using HRESULT = std::int32_t;
using ATOM = std::uint16_t;
using RETCODE = std::int16_t;
using LPCWSTR = const char16_t*;

// Message values carry pointers within the process, so they are pointer-wide.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

using HANDLE = struct HandleRecord*;
using HWND = struct WindowRecord*;
using HKEY = struct KeyRecord*;
using HGLOBAL = struct GlobalBlockRecord*;
using HTREEITEM = struct TreeItemRecord*;
using HDWP = struct DeferredMovesRecord*;
using HDC = struct DeviceContextRecord*;
using HFONT = struct FontRecord*;
using HBITMAP = struct BitmapRecord*;
using HICON = struct IconRecord*;
using HMENU = struct MenuRecord*;
using HSTMT = struct StatementRecord*;
using HDBC = struct ConnectionRecord*;

} // namespace utility
