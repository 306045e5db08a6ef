#pragma once

#include "platform/base/collections/StringArray.h"
#include "platform/system/file/StdioFile.h"

namespace utility
{

/// Reads comma-separated text with comment lines; the rules stand in docs/formats/csv.md.
///
///     line             NextLine  fields
///     a, b ,"c d"      3         "a"  "b"  "c d"
///     # note           0         ";"             a comment: its text is dropped
///     "",a             3         ""  ""  "a"     an empty pair of quotes leaves its comma behind
///     a,               1         "a"
///     "a,b             1         "a,b"           a quote that is not closed takes all
///
/// Opened as any `CStdioFile`, in the default code page. The fields of a line are good until the
/// next one is read; at the end of the file those of the last line stay. A line costs time and
/// memory linear in its length, whatever it holds. One thread.
class UTILITY_CORE_API CCsvReader : public CStdioFile
{
public:
    CCsvReader() = default;
    CCsvReader(const char16_t* path, UINT flags) : CStdioFile(path, flags) {}

    /// The number of fields of the next line that is not blank, 0 for a comment, -1 at the end of
    /// the file.
    int NextLine();

    /// Empty for an index outside the fields.
    CString GetField(int index) const;
    /// What `wcstol` reads in that base; 0 for an index outside the fields.
    int GetFieldAsInt(int index, int base) const;
    /// Fields held: 1 after a comment.
    int GetCount() const { return m_Fields.GetSize(); }

    /// Of the line read last, from 1 on; blank lines and comments count.
    int GetLineNumber() const { return m_LineNumber; }
    /// Back to the first line; the fields stay.
    void Rewind();

private:
    int BreakLine(std::u16string_view rest);
    void StoreField(int index, std::u16string_view field);

    CStringArray m_Fields;
    CString m_Line; // kept for its buffer
    int m_LineNumber = 0;
};

} // namespace utility
