#pragma once

#include "frame/AppLog.h"

namespace utility
{

/// A nesting level of the trace log, from its making to the end of its scope.
///
/// Refers to the context, which lives longer.
class CAppLogBlock
{
public:
    template <typename... TInserts>
    explicit CAppLogBlock(const CAppLogContext& context, const char16_t* format,
                          const TInserts&... inserts)
        : m_Context(context)
    {
        CAppLog::Enter(m_Context, format, inserts...);
    }
    ~CAppLogBlock() { CAppLog::Leave(m_Context); }
    CAppLogBlock(const CAppLogBlock&) = delete;
    CAppLogBlock& operator=(const CAppLogBlock&) = delete;

private:
    const CAppLogContext& m_Context;
};

} // namespace utility
