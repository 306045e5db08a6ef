#pragma once

#include "platform/base/Types.h"

/// The classic code numbers that back ends map the system's own failures to.
///
/// They share one number space with the text ids from 10601 up and stay below them.
namespace utility
{

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;
constexpr DWORD ERROR_NO_MORE_FILES = 18;
constexpr DWORD ERROR_WRITE_PROTECT = 19;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_LOCK_VIOLATION = 33;
constexpr DWORD ERROR_HANDLE_EOF = 38;
constexpr DWORD ERROR_NOT_SUPPORTED = 50;
constexpr DWORD ERROR_BAD_NETPATH = 53;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_BROKEN_PIPE = 109;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_SEM_TIMEOUT = 121;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
constexpr DWORD ERROR_DIR_NOT_EMPTY = 145;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_BAD_EXE_FORMAT = 193;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
constexpr DWORD ERROR_BADKEY = 1010;
constexpr DWORD ERROR_SERVICE_DISABLED = 1058;
constexpr DWORD ERROR_SERVICE_DOES_NOT_EXIST = 1060;
constexpr DWORD ERROR_SERVICE_NOT_ACTIVE = 1062;
constexpr DWORD ERROR_SERVICE_EXISTS = 1073;
constexpr DWORD ERROR_CONNECTION_REFUSED = 1225;
constexpr DWORD RPC_S_SERVER_UNAVAILABLE = 1722;
constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005U);

} // namespace utility
