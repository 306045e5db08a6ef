#pragma once

#include "files/CsvReader.h"

#include "utility/csv/CsvFormat.h"

#include <vector>

namespace utility
{

/// A CSV file line by line, by either set of rules, whatever its size; UTF-8, its mark skipped.
///
/// Another encoding ends the rows early, and `GetFault` tells so. "-" is the standard input.
/// A failing read raises `CFileException`.
class CCsvInput : public CCsvReader
{
public:
    explicit CCsvInput(const CCsvFormat& format) : m_Format(format) {}

    [[nodiscard]] bool OpenInput(const CString& path);

    /// The fields of the next line that has any; false at the end. Comments and blank lines are
    /// passed over.
    bool ReadRow(std::vector<CString>& fields);

    /// The line that gave the fields, as it stands in the file, and its number from 1 on.
    const CString& GetText() const { return m_Text; }
    int GetTextNumber() const { return m_TextNumber; }

    /// Why the rows ended before the file did; empty if they did not.
    const CString& GetFault() const { return m_Fault; }

    using CCsvReader::ReadString;
    bool ReadString(CString& line) override;

private:
    bool BreakNextLine(std::vector<CString>& fields);

    CCsvFormat m_Format;
    CString m_Text;
    CString m_Fault;
    int m_TextNumber = 0;
};

} // namespace utility
