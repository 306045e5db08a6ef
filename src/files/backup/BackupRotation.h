#pragma once

#include <cstdint>

namespace utility
{

class CSortedList;

/// Renames numbered copies so that they bear `first`, `first + step` ... in the order of the list.
///
/// No copy is ever overwritten: one whose name another copy still bears waits for it, and where
/// copies wait for each other in a circle one of them gets a free number meanwhile, from
/// `freeNumber` up. So whatever ends the process, each copy is there under a name of its template.
/// A rename that fails leaves its file.
void RenumberCopies(CSortedList& files, int first, int step, std::int64_t freeNumber);

} // namespace utility
