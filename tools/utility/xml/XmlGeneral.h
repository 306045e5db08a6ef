#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace utility
{

enum class EXmlFinding
{
    Element,
    Close,
    Text,      // all between two marks, other than white space alone
    LeafBlank, // white space alone, which is all that an element holds
    Comment,
    Instruction,
    DocumentType,
    RawText // the start of a CDATA section
};

/// What a general reader makes of a place; offsets are those of its first byte.
struct CXmlFinding
{
    EXmlFinding m_Kind = EXmlFinding::Element;
    std::size_t m_Offset = 0;
    std::string m_Text; // of a text; the name of an element
    std::vector<std::pair<std::string, std::string>> m_Attributes;
    bool m_IsReplaced = false; // a text that is not its element's last
};

struct CXmlFindings
{
    std::vector<CXmlFinding> m_List; // in the order of the file
    std::string m_Encoding;          // that the file declares; empty for none
    std::string m_Refusal;           // empty if all was read
    std::size_t m_End = 0;           // where the reading ended
};

/// Reads UTF-8 by the general library, whatever encoding is declared; entities are not expanded.
CXmlFindings ReadByGeneralReader(std::string_view text);

} // namespace utility
