#pragma once

#include "frame/Win32Exception.h"

#include <span>

namespace utility
{

/// A fault that this processor can be brought to, and what it is to be caught as.
struct CRaisedFault
{
    const char* m_Name;
    unsigned int m_Code; // of a CWin32UserException; 0 for the others
    void (*m_Raise)();
    bool (*m_IsCaught)(void (*raise)(), unsigned int code);
    const char* m_Class;
    bool m_IsMath = false;
};

/// All of them. Each is raised in a function of its own, so that it is thrown out of a call.
std::span<const CRaisedFault> RaisedFaults();

/// True if what the call raises is caught as T.
template <typename T>
bool IsCaughtAs(void (*raise)(), unsigned int = 0)
{
    try
    {
        raise();
        return false;
    }
    catch (T* exception)
    {
        const CExceptionGuard guard(exception);
        return true;
    }
}

/// Writes through a null pointer.
void WriteNull();

} // namespace utility
