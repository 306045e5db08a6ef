#pragma once

#include "platform/base/String.h"

#include <optional>
#include <vector>

namespace utility
{

/// A line of a table in Profiling.Log: see docs/formats/profiling-log.md.
struct CProfileRow
{
    int m_Table = 0; // from 1 on
    CString m_Name;
    int m_Total = 0; // milliseconds
    int m_Percent = 0;
    int m_Calls = 0;
};

/// The numbers are read from the line's end, since a name may hold anything; none for other lines.
std::optional<CProfileRow> ParseProfileLine(const CString& line);

/// What a profiling log holds.
struct CProfileLog
{
    std::vector<CProfileRow> m_Rows;
    std::vector<CString> m_Others; // lines that are no rows and no rules, such as errors
};

/// Raises CFileException if the file cannot be read.
CProfileLog ReadProfileLog(const CString& path);

} // namespace utility
