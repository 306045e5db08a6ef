#pragma once

namespace utility
{

class CHiveFile;

/// The stores behind the roots, made at their first use from the environment. Any thread.
CHiveFile& GetUserHive();
CHiveFile& GetMachineHive();

/// How often this process had forked when it came to be: a connection of another count is another
/// process's.
unsigned GetForkCount();

} // namespace utility
