#pragma once

#include "database/FieldTools.h"

#include <functional>
#include <span>

namespace utility
{

/// What an assignment leaves in a column of each type: "-" for the value it had before, null where
/// the text is of 300 digits or the C library's.
struct CAssignment
{
    const char* m_Name;
    std::function<void(CDBField&)> m_Assign;
    const char* m_Results[COLUMN_TYPE_COUNT]; // in the order of COLUMN_TYPES
};

/// Every kind of value that a field may be given.
std::span<const CAssignment> Assignments();

} // namespace utility
