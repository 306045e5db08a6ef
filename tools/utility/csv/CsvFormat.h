#pragma once

#include "platform/base/String.h"

#include <span>
#include <vector>

namespace utility
{

/// Whose rules a CSV file is read and written by: see docs/formats/csv.md.
enum class ECsvRules
{
    Reader,
    Break
};

struct CCsvFormat
{
    ECsvRules m_Rules = ECsvRules::Reader;
    char16_t m_Separator = u','; // always so by the reader's rules
};

/// The line that reads back as these fields; false, and the field's index, if one cannot stand in
/// it.
bool ComposeCsvLine(std::span<const CString> fields, const CCsvFormat& format, CString& line,
                    std::size_t& refused);

/// What a line loses when it is read: a quote that is not closed, text behind a closing quote, an
/// empty pair of quotes that gives two fields. Empty if it loses nothing.
CString FindCsvFault(const CString& line, const CCsvFormat& format);

} // namespace utility
