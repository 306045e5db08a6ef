#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// The classic code for a number of errno; 31 for one that has no code of its own.
DWORD ErrorFromErrno(int number);

/// As above for a call on a path: an absent name is 2 where its folder is there, else 3.
DWORD ErrorFromErrno(int number, bool isParentThere);

/// The errno that a classic code stands for; 0 if there is none.
int ErrnoFromError(DWORD code);

/// Sets the thread's last error to the code of the present errno.
void SetLastErrorFromErrno();

} // namespace utility
