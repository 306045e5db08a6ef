#pragma once

namespace utility
{

/// Whether the user pressed Ctrl-C since the first question; from that question on it no longer
/// ends the process at once.
///
/// A long command asks before it writes anything and between its steps, and leaves what is whole. A
/// second Ctrl-C ends the process whatever it does.
bool IsInterrupted();

/// Runs the message loop until it is told to quit, with its code, or until Ctrl-C, with success.
int RunUntilInterrupted();

} // namespace utility
