#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <cstdint>
#include <memory>

/// The hierarchical settings store: typed values in a tree of keys, one file a root, shared by all
/// processes.
///
/// Every call may be made on any thread and answers with a code, `ERROR_SUCCESS` or the reason;
/// none touches the thread's last error. A value that was written is safe from the end of the
/// process the moment the call returns, and seen by every process from then on.
///
///     root                   kept in
///     HKEY_CURRENT_USER      the user's file
///     HKEY_LOCAL_MACHINE     the machine's file, which administrators write
///     HKEY_CLASSES_ROOT      the user's Software\Classes, which is written, over the machine's
///     HKEY_CURRENT_CONFIG    a sub-key of the machine's
///
/// Paths are cut at `\`; leading, trailing and repeated separators do not count and `/` is an
/// ordinary character. Names are found whatever their case and keep their first spelling. Sub-keys
/// list in the order of their folded names, values in the order in which they were made. The empty
/// value name is the key's default value.
///
/// A damaged file is set aside under another name and the user is told once; a file that may not be
/// written is told once as well, goes on being read, and refuses writes.
namespace utility
{

using REGSAM = std::uint32_t;

inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000});
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001});
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(std::uintptr_t{0x80000002});
inline const HKEY HKEY_CURRENT_CONFIG = reinterpret_cast<HKEY>(std::uintptr_t{0x80000005});

constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_ALL_ACCESS = 0xf003f;
constexpr REGSAM KEY_WOW64_64KEY = 0x100; // taken and without effect: there is one view

constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;
constexpr DWORD REG_QWORD = 11;

/// `result` is to be closed, and only set on success. A sub-path of null or "" opens the key
/// itself.
[[nodiscard]] UTILITY_CORE_API LONG RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options,
                                                  REGSAM access, HKEY* result);

/// As above, but makes the key and all its parents if they are missing. `disposition`, where given,
/// is 1 for a key made and 2 for one that was there. `className` is kept with a key that is made.
[[nodiscard]] UTILITY_CORE_API LONG RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved,
                                                    LPCWSTR className, DWORD options, REGSAM access,
                                                    void* security, HKEY* result,
                                                    DWORD* disposition);

/// Roots may be passed and stay open.
UTILITY_CORE_API LONG RegCloseKey(HKEY key);

/// `size` tells the buffer's bytes and receives the value's. A null buffer asks for the size alone;
/// one that is too short gives `ERROR_MORE_DATA` and the size, and is left alone.
[[nodiscard]] UTILITY_CORE_API LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved,
                                                     DWORD* type, BYTE* data, DWORD* size);
[[nodiscard]] UTILITY_CORE_API LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved,
                                                   DWORD type, const BYTE* data, DWORD size);
[[nodiscard]] UTILITY_CORE_API LONG RegDeleteValueW(HKEY key, LPCWSTR name);

/// The sub-key at an index; `ERROR_NO_MORE_ITEMS` past the end. Lengths count units: in with the
/// terminator, out without. A walk by rising or falling index, also one that deletes as it goes,
/// takes linear time.
[[nodiscard]] UTILITY_CORE_API LONG RegEnumKeyExW(HKEY key, DWORD index, char16_t* name,
                                                  DWORD* nameLength, DWORD* reserved,
                                                  char16_t* className, DWORD* classLength);

/// The value at an index, likewise; `data` and `size` as in `RegQueryValueExW`.
[[nodiscard]] UTILITY_CORE_API LONG RegEnumValueW(HKEY key, DWORD index, char16_t* name,
                                                  DWORD* nameLength, DWORD* reserved, DWORD* type,
                                                  BYTE* data, DWORD* size);

/// Counts and greatest lengths (names in units without terminator, values in bytes). Any may be
/// null.
[[nodiscard]] UTILITY_CORE_API LONG RegQueryInfoKeyW(HKEY key, DWORD* keys, DWORD* maxKeyLength,
                                                     DWORD* maxClassLength, DWORD* values,
                                                     DWORD* maxNameLength, DWORD* maxValueLength);

/// Deletes a key with its values; `ERROR_ACCESS_DENIED` for one that has sub-keys.
[[nodiscard]] UTILITY_CORE_API LONG RegDeleteKeyW(HKEY key, LPCWSTR path);

/// Makes all changes below one root in its scope a single step: all of them stand after `Commit`,
/// none without it.
///
/// For this thread's changes alone; others wait a few seconds for it and then fail, so the scope is
/// short and asks nobody anything. A guard within another's scope joins it. If the store cannot be
/// written, or a commit fails, `Commit` is false and the changes are gone.
class UTILITY_CORE_API CRegistryTransaction
{
public:
    explicit CRegistryTransaction(HKEY root);
    ~CRegistryTransaction();
    CRegistryTransaction(const CRegistryTransaction&) = delete;
    CRegistryTransaction& operator=(const CRegistryTransaction&) = delete;

    [[nodiscard]] bool Commit();

private:
    struct CBackend; // platform/backend/sqlite/RegistryTransaction.cpp
    std::unique_ptr<CBackend> m_Backend;
};

/// What the store has cost since the process began: a measure that does not depend on the machine.
struct CRegistryCost
{
    std::uint64_t m_Statements = 0; ///< statements run
    std::uint64_t m_Steps = 0;      ///< machine steps of the database behind them
};
UTILITY_CORE_API CRegistryCost GetRegistryCost();

/// Closes the stores and looks for their files anew, where `UTILITY_SETTINGS_DIR` now says. No key
/// may be open and no other thread at work: for tests, and for a host that moves its settings at
/// start.
UTILITY_CORE_API void ReopenRegistry();

} // namespace utility
