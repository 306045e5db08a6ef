#pragma once

#include <string_view>

namespace utility
{

/// A token of form text as it stands in its file: a bracket, an unquoted run, or a quoted text with
/// its quotes.
struct CRawFormToken
{
    enum class EKind
    {
        Open,
        Close,
        Value,
        End
    };

    EKind kind = EKind::End;
    std::string_view bytes;
};

/// Cuts sound form text in UTF-8 into raw tokens, losing nothing but the white space between them.
class CFormLexer
{
public:
    explicit CFormLexer(std::string_view text) : m_Text(text) {}

    CRawFormToken Next();

private:
    std::size_t QuoteEnd(std::size_t start) const;

    std::string_view m_Text;
    std::size_t m_Place = 0;
};

} // namespace utility
