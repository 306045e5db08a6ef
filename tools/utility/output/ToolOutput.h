#pragma once

#include "platform/base/String.h"

#include <cstdint>
#include <string>
#include <vector>

namespace utility
{

class CCommandCall;

// Everything the tool prints goes through here, as UTF-8.

/// To the standard output, with a line end.
void PrintLine(const CString& text);

/// To the standard output as it stands.
void PrintBytes(std::string_view bytes);

/// Fields as a line of comma-separated text for spreadsheets, in quotes where needed, a quote
/// doubled.
void PrintCsvLine(const std::vector<CString>& cells);

/// To the error output, behind "utility: ".
void PrintError(const CString& text);

/// A text from outside on one line: what a terminal would act on is shown as an escape.
CString Printable(const CString& text);

/// Empties the buffers; false, and the reason is told, if some output was lost (a full disk).
[[nodiscard]] bool FinishOutput();

/// Writes one JSON value after the other, well formed by itself: separators come on their own.
///
///     BeginObject, Key "a", Number 1, Key "b", Text u"x", EndObject     {"a": 1, "b": "x"}
///
/// Texts are UTF-8; control units, quote and backslash are escaped, a lone surrogate becomes
/// U+FFFD. A number that JSON cannot hold (infinite, not a number) is null.
class CJsonWriter
{
public:
    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    void Key(const CString& name);
    void Text(const CString& text);
    void Number(int value) { Number(static_cast<std::int64_t>(value)); }
    void Number(std::int64_t value);
    void Number(double value);
    void Bool(bool value);
    void Null();

    /// A key with a text, for the commonest line of an object.
    void Field(const CString& name, const CString& text);

    const std::string& GetText() const { return m_Text; }

    /// Prints what has been written so far and forgets it, so that long lists need no memory.
    void Flush();

private:
    void BeginValue();
    void AppendQuoted(const CString& text);

    std::string m_Text;
    bool m_NeedsComma = false; // a value stands before, in the same list
};

/// A table with aligned columns; control units in cells are shown as escapes.
class CTextTable
{
public:
    enum class EAlign
    {
        Left,
        Right
    };

    void AddColumn(const CString& heading, EAlign align = EAlign::Left);

    /// Missing cells are empty, and cells too many are dropped.
    void AddRow(std::vector<CString> cells);

    /// Headings, a rule and the rows, without blanks at the line ends.
    CString Format() const;

    /// Prints the table.
    void Print() const;

private:
    std::vector<CString> m_Headings;
    std::vector<EAlign> m_Aligns;
    std::vector<std::vector<CString>> m_Rows;
};

} // namespace utility
