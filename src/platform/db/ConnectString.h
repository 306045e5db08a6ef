#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string_view>
#include <vector>

namespace utility
{

/// The keys and values of an ODBC connect string, in their order.
///
///     "ODBC;DSN=;Driver={SQLite3};PWD={a;}}b}"   three keys; the password is  a;}b
///
/// Keys compare without case and the first of a name holds. Anything reads: a piece without "=" is
/// kept as a key alone.
class UTILITY_CORE_API CConnectString
{
public:
    CConnectString() = default;
    explicit CConnectString(std::u16string_view text);

    bool Has(std::u16string_view key) const;

    /// Without braces; empty if absent.
    CString Get(std::u16string_view key) const;
    void Append(std::u16string_view key, std::u16string_view value);
    void Remove(std::u16string_view key);

    /// Values with ";", "{", "}", "=" or a blank at an end, and those that came so, stand in
    /// braces.
    CString Format() const;

private:
    struct CPair
    {
        CString Key;
        CString Value;
        bool IsBraced = false;
        bool HasValue = true;
    };
    const CPair* Find(std::u16string_view key) const;

    std::vector<CPair> m_Pairs;
};

/// The text with each value of PWD and PASSWORD, braced or not, as ***; for log lines, messages and
/// output.
UTILITY_CORE_API CString MaskPasswords(std::u16string_view text);

} // namespace utility
