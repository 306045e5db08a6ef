#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// While one lives on the main thread, windows that end leave the screen and the table at once, but
/// their objects stay allocated until the outermost scope ends: a window may end in its own
/// message.
///
/// Whoever calls windows out of an event of the window system holds one.
class UTILITY_CORE_API CMessageScope
{
public:
    CMessageScope();
    ~CMessageScope();
    CMessageScope(const CMessageScope&) = delete;
    CMessageScope& operator=(const CMessageScope&) = delete;
};

} // namespace utility
