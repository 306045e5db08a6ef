#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

class CBackupTemplate;

/// What a name that fits a template says.
struct CBackupNameMatch
{
    int m_Number = -1; // -1: the template has none; beyond 32 bits it saturates
    CString m_Before;  // the name up to the number
    CString m_After;   // the name behind it
};

/// Whether a file name, without extension, is made by a template; `match` keeps its preset if not.
///
///     "$(DesignName) $(Date)"    "R1 12-03-2024"   yes
///                                "R1 12-03"        no: a date is three digit groups
///     "Copy $(Increment)"        "copy 12"         yes, 12
///     "$(DesignName)$(Increment)"  "board12"       yes, design "board" and 12
///     "board1$(Increment)"         "board12"       yes, 2: the text has its digits first
///
/// Design name and label stand for any text, also for none. Time grows with the name's length times
/// that of the template's longest text.
UTILITY_CORE_API bool MatchBackupFilename(std::u16string_view name, const CBackupTemplate& pattern,
                                          CBackupNameMatch& match);

} // namespace utility
