#pragma once

#include "platform/backend/posix/FaultFrame.h"

namespace utility
{

/// The last pages of a thread's stack, held back so that what is destroyed on the way out of a
/// stack overflow has room to run.
///
/// Plain data, for a signal handler's use: Open and Close are one system call each.
class CStackReserve
{
public:
    /// Holds pages of the calling thread's stack back; none where they cannot be.
    void SetUp(const CAddressRange& stack);
    /// Gives all back for good, before the thread ends and its stack goes to another.
    void GiveBack();

    /// Lets the pages be used, once the stack above them is used up.
    void Open();
    /// Holds them back again, unless the stack is still used down to them.
    void Close(const void* stackPointer);

private:
    bool Protect(int protection) const;

    CAddressRange m_Pages;
    bool m_IsOpen = false;
};

} // namespace utility
