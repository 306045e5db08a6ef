#pragma once

#include <string>

namespace utility
{

class CXMLNode;

/// Gives the lines of an element and all below it, one by one.
///
///     <a x="1">        4 blanks a level; on negative levels none
///         <b>2</b>     a leaf stands on one line
///         <c/>         a leaf without a value closes itself
///     3</a>            a value beside children stands before the close tag, and before its indent
///
/// An element without a name gives no line of its own, nor its value; its children count as a
/// level deeper all the same. Levels from -2 down stay as they are.
class CXMLWriter
{
public:
    CXMLWriter(const CXMLNode& top, int level, int encodings);

    /// Appends the next line with its line feed; false behind the last.
    bool AppendLine(std::u16string& text);

private:
    void Open(std::u16string& text);
    void Close(std::u16string& text);
    void MoveOn();

    const CXMLNode& m_Top;
    const CXMLNode* m_Node;
    int m_Level;
    int m_Encodings;
    bool m_IsClosing = false; // the children of m_Node are written
};

} // namespace utility
