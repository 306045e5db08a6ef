#pragma once

#include <locale.h>

namespace utility
{

/// The user's locale for some categories of the C library, or the "C" one where that is not
/// installed.
///
/// Does not touch the locale of the process.
class CUserLocale
{
public:
    explicit CUserLocale(int categoryMask) : m_Locale(::newlocale(categoryMask, "", nullptr))
    {
        if (!m_Locale)
            m_Locale = ::newlocale(categoryMask, "C", nullptr);
    }
    ~CUserLocale()
    {
        if (m_Locale)
            ::freelocale(m_Locale);
    }
    CUserLocale(const CUserLocale&) = delete;
    CUserLocale& operator=(const CUserLocale&) = delete;

    /// Null only without memory.
    locale_t Get() const { return m_Locale; }

private:
    locale_t m_Locale;
};

} // namespace utility
