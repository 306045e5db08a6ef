#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// The present thread's last system failure, as a classic code; 0 while none was met.
///
/// Only a failing call of the platform writes it; success never clears it. Any thread; each has its
/// own cell.
UTILITY_CORE_API DWORD GetLastError();
UTILITY_CORE_API void SetLastError(DWORD code);

/// Puts the thread's last code back at the end of its scope, for work that must not disturb what a
/// caller may ask.
class UTILITY_CORE_API CLastErrorKeeper
{
public:
    CLastErrorKeeper() : m_Code(GetLastError()) {}
    ~CLastErrorKeeper() { SetLastError(m_Code); }
    CLastErrorKeeper(const CLastErrorKeeper&) = delete;
    CLastErrorKeeper& operator=(const CLastErrorKeeper&) = delete;

private:
    DWORD m_Code;
};

} // namespace utility
