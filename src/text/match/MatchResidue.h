#pragma once

#include "platform/base/Export.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace utility
{

class CString;

/// A text made of parts of the matched one, by number; 0 is the empty text.
using CResiduePiece = std::uint32_t;

/// What the stars of a match have taken, in pieces that are shared between the ways of the match.
///
/// Such a text can grow exponentially with the pattern, so pieces are joined without copying and a
/// text ends after its first 65,536 units. The matched text, zero-terminated, must outlive the
/// object.
class CMatchResidue
{
public:
    static constexpr std::uint32_t LIMIT = 65536;

    explicit CMatchResidue(const char16_t* text) : m_Text(text) {}

    CResiduePiece Part(std::uint32_t first, std::uint32_t count);
    /// All of the text from there on.
    CResiduePiece RestFrom(std::uint32_t first);
    CResiduePiece Join(CResiduePiece left, CResiduePiece right);

    UTILITY_CORE_API void Write(CResiduePiece piece, CString& residue) const;

private:
    struct CNode
    {
        std::uint32_t m_Left;  // a piece, or the first unit of a part
        std::uint32_t m_Right; // a piece, or 0 for a part
        std::uint32_t m_Length;
    };

    std::uint32_t GetLength(CResiduePiece piece) const { return m_Nodes[piece - 1].m_Length; }

    const char16_t* m_Text;
    std::uint32_t m_TextLength = UINT32_MAX; // not counted yet
    std::vector<CNode> m_Nodes;              // piece n is node n - 1
};

} // namespace utility
