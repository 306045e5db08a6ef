#pragma once

#include "settings/xml/XMLScanner.h"

#include <array>

namespace utility
{

class CXMLNode;

/// Makes elements out of lines. No close tag is compared with what it closes.
class CXMLReader
{
public:
    explicit CXMLReader(int encodings) : m_Encodings(encodings) {}

    /// Adds what the lines hold below an empty root; false if an element was still open at the
    /// end. A close tag at the top ends the reading, as the end does.
    bool Read(const CXMLLines& lines, CXMLNode& root);

private:
    CXMLNode* AddElement(CXMLNode& parent, std::u16string_view tag);
    CString SharedName(std::u16string_view name);

    int m_Encodings;
    std::array<CString, 64> m_Names; // the last ones, to be shared by elements of one name
};

} // namespace utility
