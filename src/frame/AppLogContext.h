#pragma once

#include "platform/base/String.h"

namespace utility
{

/// The name and level of a trace: written where the log's settings list the name at that level or
/// above.
///
/// Where a trace is met often, make the context once: a function-local constant costs nothing while
/// the log is off.
class CAppLogContext
{
public:
    CAppLogContext(const CString& name, int level) : m_Level(level), m_Name(name) {}

    int GetLevel() const { return m_Level; }
    const CString& GetName() const { return m_Name; }

private:
    int m_Level;
    CString m_Name;
};

} // namespace utility
