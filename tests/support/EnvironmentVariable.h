#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace utility
{

/// Sets a variable of the environment, or takes it away, until the end of its scope. "TZ" fixes the
/// zone.
class CEnvironmentVariable
{
public:
    CEnvironmentVariable(const char* name, const char* value) : m_Name(name)
    {
        if (const char* old = std::getenv(name))
            m_Old = old;
        Set(value);
    }
    ~CEnvironmentVariable() { Set(m_Old ? m_Old->c_str() : nullptr); }
    CEnvironmentVariable(const CEnvironmentVariable&) = delete;
    CEnvironmentVariable& operator=(const CEnvironmentVariable&) = delete;

private:
    void Set(const char* value)
    {
        if (value)
            ::setenv(m_Name.c_str(), value, 1);
        else
            ::unsetenv(m_Name.c_str());
    }

    std::string m_Name;
    std::optional<std::string> m_Old;
};

} // namespace utility
