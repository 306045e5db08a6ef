#pragma once

#include "platform/base/Types.h"

#include <span>

namespace utility
{

class CColumnNumbers;
class CSnapshotStore;

/// Puts records of a snapshot in the order of ValueOrder.h by one column, whose numbers are given;
/// deleted ones count as NULL.
///
/// The distinct values are put in order, and the records then dealt out by the place of their
/// value: a million rows of a few thousand values cost little more than a walk over them.
void OrderByColumn(std::span<DWORD> records, const CSnapshotStore& store, CColumnNumbers& numbers,
                   bool ascending);

} // namespace utility
