#include "utility/form/FormLayout.h"

#include "utility/form/FormLexer.h"

namespace utility
{

namespace
{

constexpr std::string_view MARK = "\xEF\xBB\xBF";

// Puts tokens out one by one; knows the level, and whether the form at hand has children already.
class CFormLayout
{
public:
    explicit CFormLayout(std::string_view lineEnd) : m_LineEnd(lineEnd) {}

    void Open()
    {
        if (m_Level > 0 || !m_Text.empty())
            StartLine();
        m_Text += '(';
        ++m_Level;
        m_AfterOpen = true;
        m_HasChildren = false;
    }

    void Close()
    {
        --m_Level;
        if (m_HasChildren)
            StartLine();
        m_Text += ')';
        m_HasChildren = true;
        m_AfterOpen = false;
    }

    void Value(std::string_view bytes)
    {
        if (m_HasChildren)
            StartLine();
        else if (!m_AfterOpen && !m_Text.empty())
            m_Text += ' ';
        m_Text += bytes;
        m_AfterOpen = false;
    }

    std::string Finish()
    {
        if (!m_Text.empty())
            m_Text += m_LineEnd;
        return std::move(m_Text);
    }

private:
    void StartLine()
    {
        m_Text += m_LineEnd;
        m_Text.append(m_Level * 2, ' ');
    }

    std::string_view m_LineEnd;
    std::string m_Text;
    std::size_t m_Level = 0;
    bool m_AfterOpen = false;
    bool m_HasChildren = false;
};

} // namespace

std::string LayOutForms(std::string_view text, std::string_view lineEnd)
{
    if (text.starts_with(MARK))
        text.remove_prefix(MARK.size());
    CFormLexer lexer(text);
    CFormLayout layout(lineEnd);
    for (CRawFormToken token = lexer.Next(); token.kind != CRawFormToken::EKind::End;
         token = lexer.Next())
    {
        if (token.kind == CRawFormToken::EKind::Open)
            layout.Open();
        else if (token.kind == CRawFormToken::EKind::Close)
            layout.Close();
        else
            layout.Value(token.bytes);
    }
    return layout.Finish();
}

} // namespace utility
