#pragma once

#include "platform/base/String.h"

#include <array>

namespace utility
{

class CStringArray;
class CXMLNode;

/// Makes elements out of lines. No close tag is compared with what it closes.
class CXMLReader
{
public:
    explicit CXMLReader(int encodings) : m_Encodings(encodings) {}

    /// Adds what the lines hold below an empty root; they are used up. False if an element was
    /// still open at the end. A close tag at the top ends the reading, as the end does.
    bool Read(CStringArray& lines, CXMLNode& root);

private:
    CXMLNode* AddElement(CXMLNode& parent, std::u16string_view tag);
    CString SharedName(std::u16string_view name);

    int m_Encodings;
    std::array<CString, 64> m_Names; // the last ones, to be shared by elements of one name
};

} // namespace utility
