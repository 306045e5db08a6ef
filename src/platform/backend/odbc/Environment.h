#pragma once

#include "platform/base/String.h"
#include "platform/db/Driver.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// The driver manager's handle for this process, made at first use; any thread.
class COdbcEnvironment
{
public:
    static COdbcEnvironment& Get();
    COdbcEnvironment(const COdbcEnvironment&) = delete;
    COdbcEnvironment& operator=(const COdbcEnvironment&) = delete;

    void* GetHandle() const { return m_Handle; }

    /// The driver that a named source is set up with, as name or library; empty if there is no such
    /// source.
    CString FindDriverOfSource(std::u16string_view source) const;

private:
    COdbcEnvironment();
    ~COdbcEnvironment();

    void* m_Handle = nullptr;
};

/// What the driver manager keeps about the last refused call of a handle; narrow words are UTF-8.
std::vector<CDiagnostic> ReadHandleDiagnostics(short handleType, void* handle, bool isWide);

/// A text as a driver takes it: exactly one of the two is filled.
class CDriverText
{
public:
    CDriverText(std::u16string_view text, bool isWide);

    unsigned char* GetNarrow() { return reinterpret_cast<unsigned char*>(m_Narrow.data()); }
    unsigned short* GetWide() { return reinterpret_cast<unsigned short*>(m_Wide.data()); }

private:
    std::string m_Narrow;
    std::u16string m_Wide;
};

} // namespace utility
