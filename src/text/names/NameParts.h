#pragma once

#include <string_view>

namespace utility
{

class CString;

/// A name parted at its last run of digits; views into the text that was read.
struct CNameParts
{
    std::u16string_view m_Stem;
    std::u16string_view m_Digits; // empty: no number, and the stem is the whole name
    std::u16string_view m_Tail;
    int m_Number = -1;

    bool HasNumber() const { return !m_Digits.empty(); }
    int GetWidth() const { return static_cast<int>(m_Digits.size()); }
};

/// See `CNameRange::GetStem`: a digit in first place begins no run by itself, and a run that
/// reaches the largest int is none.
CNameParts ReadNameParts(std::u16string_view name);

/// The value of a text of digits; the largest int stands for all beyond.
int ReadDigits(std::u16string_view digits);

/// Appends a number, with zeros in front up to `width` digits.
void AppendNumber(CString& text, int number, int width);

/// Whether a text of digits is how a number prints at `width`: "007" does at 3, not at 2.
bool IsPrintedAt(std::u16string_view digits, int width);

/// How names compare: what `StringCompare` calls equal where runs are no numbers.
bool IsSameName(std::u16string_view left, std::u16string_view right, bool caseSensitive);

/// The text without blanks behind.
std::u16string_view CutBlanks(std::u16string_view text);

/// The text without white space at either end.
std::u16string_view TrimEntry(std::u16string_view text);

} // namespace utility
