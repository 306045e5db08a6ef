#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// A pattern of `StringMatch` with its case flag; a value.
class UTILITY_CORE_API CWildcard
{
public:
    CWildcard() = default;
    CWildcard(const CString& pattern);
    CWildcard(const CWildcard& other) = default;
    CWildcard& operator=(const CWildcard& other) = default;
    virtual ~CWildcard();

    /// Gives `IsValid`.
    bool SetString(const CString& pattern);
    CString GetString() const { return m_Pattern; }
    void SetCaseSensitive(bool caseSensitive) { m_CaseSensitive = caseSensitive; }

    /// Both mean: not empty. The syntax is not looked at, since a malformed pattern simply does not
    /// match.
    bool IsValid() const { return !m_Pattern.IsEmpty(); }
    bool IsValidWildcard() const { return IsValid(); }

    /// An empty pattern matches every text.
    bool Match(const CString& text) const;

private:
    bool m_CaseSensitive = false;
    CString m_Pattern;
};

} // namespace utility
