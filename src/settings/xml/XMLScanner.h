#pragma once

#include "platform/base/String.h"

#include <functional>
#include <string>

namespace utility
{

/// Gives the next line; false behind the last.
using CXMLLines = std::function<bool(CString& line)>;

enum class EXMLToken
{
    End,
    OpenTag,
    CloseTag,
    EmptyTag,
    Text,
    Declaration
};

/// Cuts lines into tags and the texts between them; tolerant of all that is neither.
///
/// Lines join with nothing between them. Each unit is moved and looked at a fixed number of times,
/// whatever the lines' lengths.
///
///     <a b="1">   open     a b="1"
///     <a/>        empty    a
///     </a>        close    a          also </a/>
///     <?a?>       declaration
///     x<          text     x          but white space alone is none
///     x<!--y-->   nothing: a comment takes the text before it along
class CXMLScanner
{
public:
    explicit CXMLScanner(const CXMLLines& lines) : m_Lines(lines) {}

    /// `text` is good until the next call.
    EXMLToken ReadNext(std::u16string_view& text);

private:
    std::u16string_view Rest() const { return std::u16string_view(m_Buffer).substr(m_Start); }
    bool AppendLine();
    std::size_t FindOrAppend(char16_t unit, std::size_t from);
    bool FindTag(std::size_t& open, std::size_t& close);
    bool SkipComment(std::size_t open);

    const CXMLLines& m_Lines;
    CString m_Line; // the last one, for its memory
    std::u16string m_Buffer;
    std::size_t m_Start = 0; // what stands before is read
};

} // namespace utility
