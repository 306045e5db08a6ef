#pragma once

#include "platform/base/String.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

enum class EXmlToken
{
    End,
    Open,
    Close,
    Empty,
    Declaration,
    Text,
    Comment,
    LostText,   // what stands before a comment, which takes it along
    UnendedTag, // the file ends before ">"; nothing follows these two
    UnendedComment
};

struct CXmlToken
{
    EXmlToken m_Kind = EXmlToken::End;
    std::size_t m_Offset = 0; // of its first byte; of a text the first that is no white space
    std::string m_Text;       // between the marks, less the line ends
    std::size_t m_End = 0;    // behind its last byte
};

/// Cuts a text into the tokens that the library's reader takes from a file of these lines, with
/// their places, which that reader does not keep. Bytes are UTF-8.
class CXmlTokens
{
public:
    explicit CXmlTokens(std::string_view text) : m_Text(text) {}

    CXmlToken Next();

    /// The lines in one text, each with a line feed.
    static std::string Join(const std::vector<CString>& lines);

private:
    CXmlToken TakeComment(std::size_t open);
    CXmlToken TakeText(EXmlToken kind, std::size_t end);

    std::string_view m_Text;
    std::size_t m_Place = 0;
};

/// Lines and columns of places that are asked for in rising order.
class CXmlPlaces
{
public:
    explicit CXmlPlaces(std::string_view text) : m_Text(text) {}

    void GoTo(std::size_t offset);
    int GetLine() const { return m_Line; }
    /// In characters, from 1.
    int GetColumn() const { return m_Column; }

private:
    std::string_view m_Text;
    std::size_t m_Counted = 0;
    int m_Line = 1;
    int m_Column = 1;
};

} // namespace utility
