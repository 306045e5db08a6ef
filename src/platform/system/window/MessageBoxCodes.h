#pragma once

#include "platform/base/Types.h"

/// Styles and answers of message boxes.
namespace utility
{

// Buttons: the low four bits of a style
constexpr UINT MB_OK = 0;
constexpr UINT MB_OKCANCEL = 1;
constexpr UINT MB_ABORTRETRYIGNORE = 2;
constexpr UINT MB_YESNOCANCEL = 3;
constexpr UINT MB_YESNO = 4;
constexpr UINT MB_RETRYCANCEL = 5;
constexpr UINT MB_TYPEMASK = 15;

// Icons: the next four
constexpr UINT MB_ICONHAND = 16;
constexpr UINT MB_ICONQUESTION = 32;
constexpr UINT MB_ICONEXCLAMATION = 48;
constexpr UINT MB_ICONASTERISK = 64;
constexpr UINT MB_ICONMASK = 240;

// The default button: the next four
constexpr UINT MB_DEFBUTTON2 = 256;
constexpr UINT MB_DEFBUTTON3 = 512;

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

} // namespace utility
