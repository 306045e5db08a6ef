#include "text/TokenArray.h"

#include "platform/base/collections/StringArray.h"
#include "text/TrimView.h"

#include <algorithm>
#include <string>

namespace utility
{

namespace
{

/// Cuts one text, token by token.
class CTokenizer
{
public:
    CTokenizer(std::u16string_view text, char16_t separator, char16_t quote)
        : m_Text(text),
          m_Separator(separator),
          m_Quote(quote)
    {
    }

    bool HasMore() const { return m_Index < m_Text.size(); }
    bool IsQuoted() const { return m_Text[m_Index] == m_Quote; }
    CString NextPlain();
    CString NextQuoted();

private:
    bool IsClosingQuote(std::size_t index) const;

    std::u16string_view m_Text;
    std::size_t m_Index = 0;
    char16_t m_Separator;
    char16_t m_Quote;
};

CString CTokenizer::NextPlain()
{
    const std::size_t end = std::min(m_Text.find(m_Separator, m_Index), m_Text.size());
    const std::u16string_view token = m_Text.substr(m_Index, end - m_Index);
    m_Index = end + 1;
    return TrimView(token);
}

/// A quote closes where a separator or the end follows; another quote behind it makes a pair first.
bool CTokenizer::IsClosingQuote(std::size_t index) const
{
    return index + 1 >= m_Text.size() || m_Text[index + 1] == m_Separator;
}

CString CTokenizer::NextQuoted()
{
    std::u16string token;
    for (++m_Index; m_Index < m_Text.size(); ++m_Index)
    {
        const char16_t unit = m_Text[m_Index];
        if (unit == m_Quote)
        {
            if (m_Index + 1 < m_Text.size() && m_Text[m_Index + 1] == m_Quote)
                ++m_Index;
            else if (IsClosingQuote(m_Index))
                break;
        }
        token += unit;
    }
    m_Index += 2; // the quote and the separator
    return CString(std::u16string_view(token));
}

} // namespace

int StringToTokenArray(const CString* text, CStringArray* tokens, char16_t separator,
                       char16_t quote, bool trimQuoted)
{
    if (!text || !tokens || separator == 0 || quote == 0)
        return 0;

    const CString copy = *text; // the text may stand in the array
    CTokenizer tokenizer(TrimView(copy.View()), separator, quote);
    int count = 0;
    for (; tokenizer.HasMore(); ++count)
    {
        const bool isQuoted = tokenizer.IsQuoted();
        CString token = isQuoted ? tokenizer.NextQuoted() : tokenizer.NextPlain();
        if (isQuoted && trimQuoted)
            token.Trim();
        tokens->Add(token);
    }
    return count;
}

int TokenArrayToString(CString* text, const CStringArray* tokens, char16_t separator,
                       char16_t quote, char16_t closeQuote, bool wantQuotes)
{
    if (!text || !tokens || separator == 0 || quote == 0)
        return 0;

    const CString doubled(quote, 2);
    for (const CString& token : *tokens)
    {
        if (wantQuotes)
        {
            CString inside = token;
            inside.Replace(CString(quote), doubled);
            *text += quote;
            *text += inside;
            *text += closeQuote ? closeQuote : quote;
        }
        else
            *text += token;
        *text += separator;
    }
    return tokens->GetSize();
}

int RemoveEmptyStrings(CStringArray* array, bool trim)
{
    if (!array)
        return 0;

    const auto isEmpty = [trim](const CString& row)
    {
        return trim ? TrimView(row.View()).empty() : row.IsEmpty();
    };
    const auto kept = std::remove_if(array->begin(), array->end(), isEmpty);
    const int removed = static_cast<int>(array->end() - kept);
    array->SetSize(array->GetSize() - removed);
    return removed;
}

} // namespace utility
