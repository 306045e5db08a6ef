#include "text/match/Wildcard.h"

#include "text/match/StringMatch.h"

namespace utility
{

CWildcard::CWildcard(const CString& pattern) : m_Pattern(pattern) {}

CWildcard::~CWildcard() = default;

bool CWildcard::SetString(const CString& pattern)
{
    m_Pattern = pattern;
    return IsValid();
}

bool CWildcard::Match(const CString& text) const
{
    return m_Pattern.IsEmpty() || StringMatch(m_Pattern, text, m_CaseSensitive);
}

} // namespace utility
