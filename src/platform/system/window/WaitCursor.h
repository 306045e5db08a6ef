#pragma once

#include "platform/system/window/UserInterface.h"

namespace utility
{

/// Shows that the program is busy while it lives; such objects nest. Main thread.
class CWaitCursor
{
public:
    CWaitCursor() { GetUserInterface().BeginWaitCursor(); }
    ~CWaitCursor() { GetUserInterface().EndWaitCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    /// Busy again after a box.
    void Restore() { GetUserInterface().RestoreWaitCursor(); }
};

} // namespace utility
